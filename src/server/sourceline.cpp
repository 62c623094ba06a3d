// SPDX-License-Identifier: GPL-3.0-or-later
#include "server/sourceline.h"

#include <QMap>
#include <QStringList>

QString SourceLine::options() const
{
    // Sorted by name, so that the same choices always give the same line.
    QMap<QString, QString> options;
    if (trusted)
        options.insert(QStringLiteral("trusted"), QStringLiteral("yes"));
    const QStringList names = architectures.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (!names.isEmpty())
        options.insert(QStringLiteral("arch"), names.join(QLatin1Char(',')));
    if (options.isEmpty())
        return {};
    QString text;
    for (auto option = options.cbegin(); option != options.cend(); ++option)
        text += QStringLiteral("%1=%2 ").arg(option.key(), option.value());
    return QLatin1Char('[') + text.trimmed() + QLatin1String("] ");
}

QString SourceLine::text() const
{
    if (protocol == LocalDirectoryProtocol)
        return QStringLiteral("deb %1file://%2/ %3 %4").arg(options(), directory, codename, components);
    const QString scheme = protocol == FtpProtocol ? QStringLiteral("ftp") : QStringLiteral("http");
    return QStringLiteral("deb %1%2://%3:%4/ %5 %6")
        .arg(options(), scheme, host, QString::number(port), codename, components);
}
