// SPDX-License-Identifier: GPL-3.0-or-later
#include "server/sourceline.h"

#include "server/portrange.h"

#include <QDir>
#include <QMap>
#include <QRegularExpression>
#include <QStringList>
#include <QUrl>

QString SourceLine::options() const
{
    // Sorted by name, so that the same choices always give the same line.
    QMap<QString, QString> options;
    if (trusted)
        options.insert(QStringLiteral("trusted"), QStringLiteral("yes"));
    if (!signedBy.isEmpty())
        options.insert(QStringLiteral("signed-by"), signedBy);
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

QString SourceLine::inLine(const QString &path)
{
    return QString(path).replace(QLatin1Char(' '), QLatin1String("%20"));
}

QString SourceLine::path() const
{
    return QString(directory).replace(QLatin1String("%20"), QLatin1String(" "));
}

QString SourceLine::text() const
{
    if (protocol == LocalDirectoryProtocol) {
        const QString scheme = copied ? QStringLiteral("copy") : QStringLiteral("file");
        return QStringLiteral("deb %1%2://%3/ %4 %5").arg(options(), scheme, directory, codename, components);
    }
    const QString scheme = protocol == FtpProtocol ? QStringLiteral("ftp") : QStringLiteral("http");
    return QStringLiteral("deb %1%2://%3:%4/ %5 %6")
        .arg(options(), scheme, host, QString::number(port), codename, components);
}

void SourceLine::readOptions(const QString &text)
{
    const QStringList words = text.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &word : words) {
        const QString name = word.section(QLatin1Char('='), 0, 0);
        const QString value = word.section(QLatin1Char('='), 1);
        if (name == QLatin1String("arch"))
            architectures = QString(value).replace(QLatin1Char(','), QLatin1Char(' '));
        else if (name == QLatin1String("signed-by"))
            signedBy = value;
        else if (name == QLatin1String("trusted"))
            trusted = value == QLatin1String("yes");
    }
}

bool SourceLine::readUri(const QString &text)
{
    const QUrl url(text);
    const QString scheme = url.scheme();
    if (scheme == QLatin1String("file") || scheme == QLatin1String("copy")) {
        protocol = LocalDirectoryProtocol;
        copied = scheme == QLatin1String("copy");
        directory = inLine(QDir::cleanPath(url.path(QUrl::FullyDecoded)));
        return directory.startsWith(QLatin1Char('/'));
    }
    if (scheme != QLatin1String("http") && scheme != QLatin1String("ftp"))
        return false;
    protocol = scheme == QLatin1String("ftp") ? FtpProtocol : HttpProtocol;
    host = url.host();
    constexpr int UsualHttpPort = 80;
    port = url.port(protocol == FtpProtocol ? PortRange::Ftp : UsualHttpPort);
    return !host.isEmpty();
}

std::optional<SourceLine> SourceLine::parse(const QString &line)
{
    static const QRegularExpression form(QRegularExpression::anchoredPattern(
        QStringLiteral("\\s*deb\\s+(\\[(?<options>[^\\]]*)\\]\\s*)?(?<uri>\\S+)"
                       "\\s+(?<suite>\\S+)(?<components>(\\s+\\S+)*)\\s*")));
    const QRegularExpressionMatch match = form.match(line.section(QLatin1Char('#'), 0, 0));
    SourceLine source;
    if (!match.hasMatch() || !source.readUri(match.captured(QStringLiteral("uri"))))
        return std::nullopt;
    source.readOptions(match.captured(QStringLiteral("options")));
    source.codename = match.captured(QStringLiteral("suite"));
    // Not normalised, so that text() gives one of our own lines unchanged.
    source.components = match.captured(QStringLiteral("components")).mid(1);
    return source;
}
