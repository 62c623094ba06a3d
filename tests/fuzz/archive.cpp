// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/packagenames.h"
#include "engine/archive/archivecontents.h"
#include "engine/archive/packageextractor.h"
#include "engine/archive/tarheader.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QTemporaryDir>

#include <utility>

#include <zlib.h>

namespace
{
struct Extracted
{
    PackageExtractor::Result result = PackageExtractor::Result::NoTar;
    QStringList contents;
};

/** Extracts the archive and checks the files: only packages, and all of them inside the folder. */
Extracted extract(const Fuzzing::MemoryFile &file, int largest)
{
    const QTemporaryDir scratch(QStringLiteral("/dev/shm/velt-fuzz-XXXXXX"));
    FUZZ_RULE(scratch.isValid());
    const QString folder = scratch.filePath(QStringLiteral("out"));
    QDir().mkpath(folder);
    PackageExtractor extractor(folder, [] { return false; });
    Extracted extracted;
    extracted.result = extractor.extract(file.name());
    FUZZ_RULE(extracted.result != PackageExtractor::Result::Stopped);
    FUZZ_RULE(extractor.error().isEmpty() == (extracted.result != PackageExtractor::Result::Damaged));

    const QDir::Filters all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    FUZZ_RULE(QDir(scratch.path()).entryList(all) == QStringList{QStringLiteral("out")});
    QStringList present;
    qint64 size = 0;
    QDirIterator walk(folder, all, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QFileInfo info(walk.next());
        FUZZ_RULE(!info.isSymLink() && (info.isFile() || info.isDir()));
        if (!info.isFile())
            continue;
        FUZZ_RULE(PackageNames::isPackageFile(info.fileName()));
        present.append(info.filePath());
        size += info.size();
    }
    FUZZ_RULE(size <= largest);
    QStringList told = extractor.files();
    for (const QString &path : std::as_const(told)) {
        QFile package(path);
        if (package.open(QIODevice::ReadOnly))
            extracted.contents.append(QFileInfo(path).fileName() + QLatin1Char(' ')
                                      + QString::fromLatin1(package.readAll().toHex()));
    }
    if (extracted.result == PackageExtractor::Result::Done) {
        FUZZ_RULE(told.removeDuplicates() == 0);
        told.sort();
        present.sort();
        FUZZ_EQUAL(told.join(QLatin1Char('\n')), present.join(QLatin1Char('\n')));
    }
    return extracted;
}
} // namespace

void FuzzTarget::archive(std::string_view input)
{
    const QByteArray given(input.data(), static_cast<int>(input.size()));
    extract(Fuzzing::MemoryFile(given), 1 << 28);

    TarHeader header;
    if (header.overrule(given))
        FUZZ_RULE(header.size >= 0);

    if (given.startsWith("\x1f\x8b"))
        return; // compressing it again would give another input
    const QByteArray tar = Fuzzing::withRightSums(given);
    const Extracted plain = extract(Fuzzing::MemoryFile(tar), tar.size());
    const Fuzzing::MemoryFile compressed{QByteArray()};
    const gzFile gzip = gzopen(QFile::encodeName(compressed.name()).constData(), "wb1");
    FUZZ_RULE(gzwrite(gzip, tar.constData(), static_cast<unsigned>(tar.size())) == tar.size());
    FUZZ_RULE(gzclose(gzip) == Z_OK);
    const Extracted packed = extract(compressed, tar.size());
    // Compression must make no difference. Only a compressed input that is no tar archive may give another error.
    if (plain.result == PackageExtractor::Result::Done) {
        FUZZ_RULE(packed.result == plain.result);
        FUZZ_EQUAL(packed.contents.join(QLatin1Char('\n')), plain.contents.join(QLatin1Char('\n')));
    } else {
        FUZZ_RULE(packed.result != PackageExtractor::Result::Done);
    }
}
