// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/history/indexedfiles.h"

#include "core/controltext.h"
#include "files/regularfile.h"

#include <QDirIterator>

#include <string_view>

namespace
{
void findIn(std::string_view index, const QSet<QString> &files, QHash<QString, IndexedFiles::Entry> *found)
{
    constexpr std::string_view Field = "\nFilename: ";
    constexpr std::string_view End = "\n\n";
    for (std::size_t field = index.find(Field);
         field != std::string_view::npos && found->size() < files.size();) {
        const std::size_t begin = field + Field.size();
        const std::size_t end = std::min(index.find('\n', begin), index.size());
        const QString file = QString::fromUtf8(index.data() + begin, static_cast<int>(end - begin));
        if (files.contains(file)) {
            const std::size_t before = index.rfind(End, field);
            const std::size_t first = before == std::string_view::npos ? 0 : before + End.size();
            const std::string_view paragraph = index.substr(first, index.find(End, end) - first);
            const std::string_view digest = controlFieldValue(paragraph, "SHA256");
            const std::string_view size = controlFieldValue(paragraph, "Size");
            found->insert(file,
                          {QString::fromLatin1(digest.data(), static_cast<int>(digest.size())),
                           QByteArray(size.data(), static_cast<int>(size.size())).toLongLong()});
        }
        field = index.find(Field, end);
    }
}
} // namespace

QHash<QString, IndexedFiles::Entry> IndexedFiles::find(const QString &dists, const QSet<QString> &files)
{
    QHash<QString, Entry> found;
    QDirIterator walk(
        dists, {QStringLiteral("Packages")}, QDir::Files | QDir::NoSymLinks, QDirIterator::Subdirectories);
    while (walk.hasNext() && found.size() < files.size()) {
        RegularFile index(walk.next());
        if (!index.open(QIODevice::ReadOnly) || index.size() == 0)
            continue;
        if (const uchar *bytes = index.map(0, index.size()))
            findIn({reinterpret_cast<const char *>(bytes), static_cast<std::size_t>(index.size())},
                   files,
                   &found);
    }
    return found;
}
