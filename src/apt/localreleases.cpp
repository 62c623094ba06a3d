// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/localreleases.h"

#include "files/openfolder.h"

#include <QCryptographicHash>
#include <QRegularExpression>

namespace
{
/** The folder with the source's release files; empty when that is not plain from its line. */
QString folderOf(const QString &source)
{
    // A percent sign and a dollar sign stand for other characters.
    static const QRegularExpression expression(
        QStringLiteral("^\\s*(?:\\[[^\\]]*\\]\\s*)?(?:file|copy):(?<path>/[^\\s%]*)\\s+(?<suite>[^\\s%$]+)"));
    const auto match = expression.match(source);
    if (!match.hasMatch())
        return {};
    const QString suite = match.captured(QStringLiteral("suite"));
    return match.captured(QStringLiteral("path"))
           + (suite.endsWith(QLatin1Char('/')) ? QStringLiteral("/") : QStringLiteral("/dists/")) + suite;
}
} // namespace

std::optional<QByteArray> LocalReleases::digest(const QStringList &sources)
{
    static const QRegularExpression local(QStringLiteral("(?:^|\\s)(?:file|copy|cdrom):"));
    constexpr qint64 Largest = 16 << 20; // bytes
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const QString &source : sources) {
        if (!source.contains(local))
            continue;
        const QString folder = folderOf(source);
        bool isFound = false;
        for (const char *name : {"InRelease", "Release", "Release.gpg"}) {
            const auto text = folder.isEmpty()
                                  ? std::nullopt
                                  : OpenFolder::readFile(folder + QLatin1Char('/') + QLatin1String(name),
                                                         Largest,
                                                         OpenFolder::Follow);
            isFound = isFound || text;
            const QByteArray content = text.value_or(QByteArray());
            hash.addData(QByteArray(name + QByteArray::number(content.size()) + ' ' + content));
        }
        if (!isFound)
            return std::nullopt;
    }
    return hash.result().toHex();
}
