// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archive/packagecontents.h"

#include "core/qtversions.h"

#include <QElapsedTimer>

#include <algorithm>
#include <utility>

#include <zlib.h>

namespace
{
constexpr int LargestShown = 1 << 20; ///< bytes of a text
constexpr int LongestLine = 2000; ///< characters
constexpr qint64 MostTime = 60000; ///< milliseconds
constexpr const char *Documentation = "usr/share/doc/";

/** The beginning of what a gzip stream (RFC 1952) unpacks to. */
QByteArray unpacked(const QByteArray &bytes, int most)
{
    constexpr int WithGzipHeader = 16 + MAX_WBITS;
    QByteArray text(most, Qt::Uninitialized);
    z_stream stream = {};
    if (inflateInit2(&stream, WithGzipHeader) != Z_OK)
        return {};
    stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(bytes.constData()));
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = reinterpret_cast<Bytef *>(text.data());
    stream.avail_out = static_cast<uInt>(text.size());
    inflate(&stream, Z_FINISH);
    text.resize(static_cast<int>(stream.total_out));
    inflateEnd(&stream);
    return text;
}

QString decoded(const QByteArray &bytes)
{
    bool hasError = false;
    const QString text = QtVersions::decodeUtf8(bytes, &hasError);
    // Old changelogs are in Latin-1.
    return hasError ? QString::fromLatin1(bytes) : text;
}

/** Marks and overrides of the direction of writing (Unicode, UAX 9), which could show a script as another one. */
bool turnsDirection(QChar c)
{
    return (c >= QChar(0x202a) && c <= QChar(0x202e)) || (c >= QChar(0x2066) && c <= QChar(0x2069));
}

QByteArray folderOf(const QByteArray &path)
{
    return path.left(path.lastIndexOf('/'));
}

bool isDocument(const QByteArray &path)
{
    const QByteArray name = path.mid(path.lastIndexOf('/') + 1);
    return path.startsWith(Documentation) && (name == "copyright" || name.startsWith("changelog"));
}

/** The first file of these names in the folder of the package, else in any other; null when there is none. */
const DebFile *
documentOf(const QVector<DebFile> &files, const QByteArray &package, const QList<QByteArray> &names)
{
    for (const bool isOwn : {true, false}) {
        for (const QByteArray &name : names) {
            const auto found = std::find_if(files.cbegin(), files.cend(), [&](const DebFile &file) {
                return !file.contents.isEmpty() && file.path.endsWith(QByteArray('/' + name))
                       && (!isOwn || folderOf(file.path) == Documentation + package);
            });
            if (found != files.cend())
                return &*found;
        }
    }
    return nullptr;
}
} // namespace

PackageContents::Text PackageContents::readable(const QString &path, const QByteArray &bytes)
{
    Text text;
    text.path = path;
    const bool isPacked = bytes.startsWith("\x1f\x8b");
    QByteArray plain = isPacked ? unpacked(bytes, LargestShown + 1) : bytes;
    text.isCut = plain.size() > LargestShown;
    plain.truncate(LargestShown);
    text.isBinary = plain.contains('\0') || (isPacked && plain.isEmpty());
    if (text.isBinary)
        return text;
    const QString whole = decoded(plain);
    text.text.reserve(whole.size());
    int length = 0;
    for (const QChar c : whole) {
        if (c == QLatin1Char('\r'))
            continue;
        length = c == QLatin1Char('\n') ? 0 : length + 1;
        // One endless line would take seconds to lay out.
        if (length > LongestLine) {
            text.text += QLatin1Char('\n');
            length = 1;
        }
        const bool isPlain = c == QLatin1Char('\n') || c == QLatin1Char('\t')
                             || (c.category() != QChar::Other_Control && !turnsDirection(c));
        text.text += isPlain ? c : QChar(QChar::ReplacementCharacter);
    }
    return text;
}

PackageContents
PackageContents::of(const QString &fileName, const QString &package, const std::function<bool()> &stopped)
{
    QElapsedTimer time;
    time.start();
    const auto mustEnd = [&] { return time.elapsed() > MostTime || stopped(); };
    DebFiles found = DebFiles::of(fileName, mustEnd, isDocument);
    PackageContents contents;
    contents.isCut = found.isTooLarge || (!found.isWhole && time.elapsed() > MostTime);
    contents.isRead = found.isWhole || contents.isCut;
    for (const DebFile &file : std::as_const(found.control)) {
        if (file.type != '0')
            continue;
        Text text = readable(QString::fromUtf8(file.path), file.contents);
        text.isCut = text.isCut || file.contents.size() < file.size;
        contents.control.append(text);
    }
    const QByteArray name = package.toUtf8();
    const auto textOf = [&](const QList<QByteArray> &names) {
        const DebFile *file = documentOf(found.files, name, names);
        return file == nullptr ? Text() : readable(QString::fromUtf8(file->path), file->contents);
    };
    contents.changelog = textOf({"changelog.Debian.gz", "changelog.Debian", "changelog.gz", "changelog"});
    contents.copyright = textOf({"copyright"});
    const auto link = std::find_if(found.files.cbegin(), found.files.cend(), [&](const DebFile &file) {
        return file.type == '2' && file.path == Documentation + name;
    });
    if (link != found.files.cend())
        contents.otherPackage = QString::fromUtf8(link->target.mid(link->target.lastIndexOf('/') + 1));
    for (DebFile &file : found.files)
        file.contents.clear();
    contents.files = found.files;
    return contents;
}
