// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/aptfetch.h"

#include <QRegularExpression>
#include <QVector>

#include <algorithm>
#include <array>
#include <utility>

namespace
{
constexpr qint64 FreshSeconds = 3600;
constexpr qint64 DaySeconds = 24 * FreshSeconds;
constexpr qint64 RetrySeconds = 600;

/** Whether the time has come, and lies less than this back. A clock that was set back has stopped counting. */
bool isWithin(const QDateTime &time, qint64 seconds, const QDateTime &now)
{
    const qint64 age = time.isValid() ? time.secsTo(now) : -1;
    return age >= 0 && age < seconds;
}

QString setting(const QString &key, const QString &value)
{
    return QStringLiteral("%1 \"%2\";\n").arg(key, value);
}

/** One type of failure: apt's message, with the source in the group "source", and our message. */
struct Failure
{
    QRegularExpression expression;
    const char *text; ///< %1 is the source
};

const std::array<Failure, 8> &failures()
{
    // The first match is used, so the general ones come last.
    static const std::array<Failure, 8> all{{
        {QRegularExpression(
             QStringLiteral("Skipping acquire of configured file .* as repository '(?<source>.+?)'"
                            " doesn't have the component")),
         QT_TRANSLATE_NOOP("AptFetch", "The source %1 does not have one of its components.")},
        {QRegularExpression(
             QStringLiteral("^E: (?:The repository '(?<source>.+?)' is (?:not|no longer) signed"
                            "|(?:GPG error|OpenPGP signature verification failed): (?<source2>.+?): "
                            "|Failed to fetch (?<source3>\\S+)  .*(?:NO_PUBKEY|signature))")),
         QT_TRANSLATE_NOOP("AptFetch",
                           "The source %1 is not trusted: its signature is missing or cannot be checked.")},
        {QRegularExpression(QStringLiteral("^E: Release file for (?<source>.+?) is expired ")),
         QT_TRANSLATE_NOOP(
             "AptFetch",
             "The source %1 has expired: it is no longer updated, or the clock of this machine is "
             "wrong.")},
        {QRegularExpression(
             QStringLiteral("The repository '(?<source>.+?)' does(?: not|n't) (?:no longer )?have "
                            "a Release file")),
         QT_TRANSLATE_NOOP("AptFetch", "The source %1 does not exist there.")},
        {QRegularExpression(QStringLiteral("Failed to fetch (?<source>\\S+)  .*(?:File not found|404)")),
         QT_TRANSLATE_NOOP("AptFetch", "A part of the source is missing: %1.")},
        {QRegularExpression(QStringLiteral(
             "Failed to fetch (?<source>\\S+)  .*(?:[Cc]onnect|[Rr]esolv|[Tt]imed out|[Uu]nreachable)")),
         QT_TRANSLATE_NOOP("AptFetch", "The server could not be reached: %1.")},
        {QRegularExpression(QStringLiteral("^E: The method driver .*/(?<source>[a-z+]+) could not be found")),
         QT_TRANSLATE_NOOP("AptFetch", "apt of this machine cannot use addresses with \"%1:\".")},
        {QRegularExpression(QStringLiteral("Failed to fetch (?<source>\\S+)")),
         QT_TRANSLATE_NOOP("AptFetch", "The source could not be fetched: %1.")},
    }};
    return all;
}
} // namespace

QString AptFetch::configuration(const Places &places, const QStringList &architectures)
{
    QString text;
    for (const QString &file : places.included)
        text += QStringLiteral("#include \"%1\";\n").arg(file);
    // No hooks of the system run after an update, and only package lists are fetched: other lists can be 100 times as
    // large.
    text += QStringLiteral(
        "#clear APT::Update;\n#clear Acquire::IndexTargets;\n"
        "Acquire::IndexTargets::deb::Packages {\n"
        "    MetaKey \"$(COMPONENT)/binary-$(ARCHITECTURE)/Packages\"; flatMetaKey \"Packages\";\n"
        "    ShortDescription \"Packages\"; Description \"$(RELEASE)/$(COMPONENT) $(ARCHITECTURE) "
        "Packages\";\n"
        "    flatDescription \"$(RELEASE) Packages\"; Optional \"0\";\n};\n#clear APT::Architectures;\n");
    if (!architectures.isEmpty())
        text += setting(QStringLiteral("APT::Architecture"), architectures.first());
    for (const QString &architecture : architectures)
        text += setting(QStringLiteral("APT::Architectures::"), architecture);
    const QString nothing = QStringLiteral("/dev/null");
    const QVector<std::pair<const char *, QString>> settings{
        {"Acquire::Languages", QStringLiteral("none")},
        {"APT::Cache::ShowFull", QStringLiteral("true")},
        // With a compressed list, apt unpacks everything before a record to show the record.
        {"Acquire::GzipIndexes", QStringLiteral("false")},
        {"APT::Update::Error-Mode", QStringLiteral("any")},
        // Our own FTP publications are sources too, and apt disables its ftp method by default.
        {"Dir::Bin::Methods::ftp", QStringLiteral("ftp")},
        // As root, apt would read the lists as a user who cannot enter this folder.
        {"APT::Sandbox::User", QString()},
        // Each attempt waits longer than the one before, and the user is waiting.
        {"Acquire::Retries", QStringLiteral("1")},
        {"Dir::Etc::parts", nothing},
        {"Dir::Etc::main", nothing},
        {"Dir::Etc::sourcelist", places.sourceList},
        {"Dir::Etc::sourceparts", nothing},
        {"Dir::Etc::preferences", nothing},
        {"Dir::Etc::preferencesparts", nothing},
        {"Dir::State", places.folder},
        {"Dir::State::lists", places.folder + QLatin1String("/lists")},
        {"Dir::State::status", places.folder + QLatin1String("/status")},
        {"Dir::Cache", places.folder + QLatin1String("/cache")},
        {"Dir::Cache::archives", places.folder + QLatin1String("/cache/archives")},
        {"Dir::Cache::pkgcache", QStringLiteral("pkgcache.bin")},
        {"Dir::Cache::srcpkgcache", QStringLiteral("srcpkgcache.bin")},
        {"Dir::Log", places.folder},
    };
    for (const auto &[key, value] : settings)
        text += setting(QLatin1String(key), value);
    return text;
}

int AptFetch::percent(const QByteArray &output)
{
    static const QRegularExpression status(QStringLiteral("^dlstatus:\\d+:(\\d+)(?:\\.\\d*)?:.*$"),
                                           QRegularExpression::MultilineOption);
    int result = -1;
    auto matches = status.globalMatch(QString::fromUtf8(output));
    while (matches.hasNext())
        result = std::min(matches.next().captured(1).toInt(), 100);
    return result;
}

QStringList AptFetch::problems(const QString &errorOutput)
{
    static const QRegularExpression general(QStringLiteral("^E: (.+)$"));
    QStringList found;
    QStringList others;
    const QStringList lines = errorOutput.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        bool known = false;
        for (const Failure &failure : failures()) {
            const auto match = failure.expression.match(line);
            known = match.hasMatch();
            if (!known)
                continue;
            QString source;
            for (const char *group : {"source", "source2", "source3"})
                source += match.captured(QLatin1String(group));
            found.append(tr(failure.text).arg(source));
            break;
        }
        const auto match = general.match(line);
        if (!known && match.hasMatch())
            others.append(match.captured(1));
    }
    found.removeDuplicates();
    // A message of apt without a source usually summarises earlier messages.
    return found.isEmpty() ? others : found;
}

bool AptFetch::isFresh(const QDateTime &fetched, const QDateTime &now)
{
    return isWithin(fetched, FreshSeconds, now);
}

bool AptFetch::isDue(const QDateTime &fetched, const QDateTime &tried, const QDateTime &now)
{
    return !isWithin(fetched, DaySeconds, now) && !isWithin(tried, RetrySeconds, now);
}
