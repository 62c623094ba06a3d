// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/sourceoptions.h"

#include <QRegularExpression>
#include <QStringList>

#include <apt-pkg/tagfile.h>

namespace
{
QString keyOf(const QString &uri, const QString &suite)
{
    // apt itself adds a slash to the end of every address.
    return (uri.endsWith(QLatin1Char('/')) ? uri : uri + QLatin1Char('/')) + QLatin1Char(' ') + suite;
}

/** A source line without "deb": options in brackets, address, suite. */
const QRegularExpression &sourceExpression()
{
    static const QRegularExpression expression(
        QStringLiteral("^\\s*(?:\\[(?<options>[^\\]]*)\\]\\s*)?(?<uri>[^\\s\\[]\\S*)\\s+(?<suite>\\S+)"));
    return expression;
}

QStringList words(const QString &text)
{
    static const QRegularExpression blanks(QStringLiteral("[\\s,]+"));
    return text.split(blanks, Qt::SkipEmptyParts);
}

QStringList trustOptions(const QStringList &options)
{
    QStringList kept;
    for (const QString &option : options) {
        const QString name = option.section(QLatin1Char('='), 0, 0).toLower();
        if (name == QLatin1String("signed-by") || name == QLatin1String("trusted"))
            kept.append(option);
    }
    return kept;
}
} // namespace

void SourceOptions::addLines(const QString &text)
{
    static const QRegularExpression blanks(QStringLiteral("\\s+"));
    static const QRegularExpression deb(QStringLiteral("^\\s*deb\\s+"));
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (!line.contains(deb))
            continue;
        const auto match = sourceExpression().match(QString(line).remove(deb));
        const QStringList options
            = match.captured(QStringLiteral("options")).split(blanks, Qt::SkipEmptyParts);
        add(match.captured(QStringLiteral("uri")),
            match.captured(QStringLiteral("suite")),
            trustOptions(options).join(QLatin1Char(' ')));
    }
}

void SourceOptions::addStanzas(const QString &text)
{
    static const QRegularExpression comment(QStringLiteral("^#.*\\n?"), QRegularExpression::MultilineOption);
    // The reader wants an empty line behind the last stanza too.
    const QByteArray stanzas = QString(text).remove(comment).toUtf8() + "\n\n";
    pkgTagSection stanza;
    const char *start = stanzas.constData();
    const char *const end = start + stanzas.size();
    for (; start < end && stanza.Scan(start, end - start); start += stanza.size()) {
        const auto field = [&stanza](const char *name) {
            const auto value = stanza.Find(name);
            return words(QString::fromUtf8(value.data(), static_cast<int>(value.size())));
        };
        const QStringList keys = field("Signed-By");
        const QStringList trusted = field("Trusted");
        QStringList options;
        if (!keys.isEmpty() && !keys.first().startsWith(QLatin1String("-----")))
            options.append(QLatin1String("signed-by=") + keys.join(QLatin1Char(',')));
        if (!trusted.isEmpty())
            options.append(QLatin1String("trusted=") + trusted.first());
        const QStringList uris = field("URIs");
        const QStringList suites = field("Suites");
        for (const QString &uri : uris)
            for (const QString &suite : suites)
                add(uri, suite, options.join(QLatin1Char(' ')));
    }
}

QString SourceOptions::completed(const QString &source) const
{
    const auto match = sourceExpression().match(source);
    const QString own = match.captured(QStringLiteral("options")).trimmed();
    const QString known = m_options.value(
        keyOf(match.captured(QStringLiteral("uri")), match.captured(QStringLiteral("suite"))));
    if (known.isEmpty() || !trustOptions(words(own)).isEmpty())
        return source;
    const QString options = own.isEmpty() ? known : own + QLatin1Char(' ') + known;
    return QStringLiteral("[%1] %2").arg(options, source.mid(match.capturedStart(QStringLiteral("uri"))));
}

void SourceOptions::add(const QString &uri, const QString &suite, const QString &options)
{
    if (!uri.isEmpty() && !options.isEmpty())
        m_options.insert(keyOf(uri, suite), options);
}
