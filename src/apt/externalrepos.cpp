// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/externalrepos.h"

#include "apt/sourceparts.h"
#include "core/countof.h"
#include "core/settingskeys.h"

#include <QRegularExpression>
#include <QUrl>

#include <algorithm>
#include <iterator>
#include <utility>

namespace
{
bool isInvisible(QChar character)
{
    const auto category = character.category();
    return (category == QChar::Other_Control && character != QLatin1Char('\t'))
           || category == QChar::Other_Format || category == QChar::Separator_Line
           || category == QChar::Separator_Paragraph;
}

/** The stored form of an alias: one line, without invisible characters that reverse or hide the text around it. */
QString visibleAlias(const QString &alias)
{
    QString visible;
    const QString text = alias.simplified();
    std::copy_if(text.cbegin(), text.cend(), std::back_inserter(visible), [](QChar character) {
        return !isInvisible(character);
    });
    // Removed characters can leave two blanks together.
    return visible.simplified();
}
} // namespace

// --- storage -----------------------------------------------------------------------------------------------------

namespace
{
/** The valid sources in the values of a group. */
QStringList storedSources(QSettings &settings, const QString &group)
{
    QStringList sources;
    settings.beginGroup(group);
    const QStringList keys = settings.childKeys();
    for (const QString &key : keys) {
        const QString source = settings.value(key).toString();
        if (ExternalRepos::refusal(source).isEmpty())
            sources.append(ExternalRepos::normalised(source));
    }
    settings.endGroup();
    return sources;
}

void storeSources(QSettings &settings, const QString &group, const QStringList &sources)
{
    settings.remove(group);
    settings.beginGroup(group);
    int number = 0;
    for (const QString &source : sources)
        settings.setValue(SettingsKey::ExternalRepo.arg(++number), source);
    settings.endGroup();
}
} // namespace

ExternalRepos ExternalRepos::load(QSettings &settings)
{
    ExternalRepos repos;
    const QStringList added = storedSources(settings, SettingsKey::EnabledRepos)
                              + storedSources(settings, SettingsKey::AddedRepos);
    for (const QString &source : added)
        repos.storedEntry(source).added = true;
    const QStringList disabled = storedSources(settings, SettingsKey::DisabledRepos);
    for (const QString &source : disabled)
        repos.storedEntry(source).enabled = false;
    settings.beginGroup(SettingsKey::Aliases);
    const QStringList keys = settings.childKeys();
    for (const QString &key : keys) {
        const QString source = QUrl::fromPercentEncoding(key.toUtf8());
        const QString alias = visibleAlias(settings.value(key).toString());
        if (!alias.isEmpty() && refusal(source).isEmpty())
            repos.storedEntry(normalised(source)).alias = alias;
    }
    settings.endGroup();
    // The numbers in the settings are not a stable order.
    std::sort(repos.m_entries.begin(), repos.m_entries.end(), [](const Entry &a, const Entry &b) {
        return a.source < b.source;
    });
    repos.findRows();
    return repos;
}

bool ExternalRepos::save(QSettings &settings) const
{
    QStringList disabled;
    QStringList added;
    QStringList addedAndDisabled;
    for (const Entry &entry : m_entries) {
        if (!entry.enabled)
            disabled.append(entry.source);
        if (entry.added)
            (entry.enabled ? added : addedAndDisabled).append(entry.source);
    }
    storeSources(settings, SettingsKey::DisabledRepos, disabled);
    storeSources(settings, SettingsKey::EnabledRepos, added);
    storeSources(settings, SettingsKey::AddedRepos, addedAndDisabled);
    settings.remove(SettingsKey::Aliases);
    settings.beginGroup(SettingsKey::Aliases);
    for (const Entry &entry : m_entries) {
        // Encoded, because a slash in a key would begin a group.
        if (!entry.alias.isEmpty())
            settings.setValue(QString::fromLatin1(QUrl::toPercentEncoding(entry.source)), entry.alias);
    }
    settings.endGroup();
    settings.sync();
    return settings.status() == QSettings::NoError;
}

ExternalRepos::Entry &ExternalRepos::storedEntry(const QString &source)
{
    const auto row = m_rows.constFind(SourceParts::identity(source));
    if (row != m_rows.constEnd())
        return m_entries[*row];
    Entry entry;
    entry.source = source;
    append(entry);
    return m_entries.last();
}

void ExternalRepos::append(const Entry &entry)
{
    m_rows.insert(SourceParts::identity(entry.source), countOf(m_entries));
    m_entries.append(entry);
}

void ExternalRepos::findRows()
{
    m_rows.clear();
    for (int row = 0; row < m_entries.size(); ++row)
        m_rows.insert(SourceParts::identity(m_entries.at(row).source), row);
}

// --- the list ----------------------------------------------------------------------------------------------------

void ExternalRepos::merge(const QStringList &knownSources)
{
    ExternalRepos merged;
    QHash<QString, QVector<int>> inPlace; // rows that may have got more components
    for (int row = 0; row < m_entries.size(); ++row) {
        if (!m_entries.at(row).added)
            inPlace[SourceParts::of(m_entries.at(row).source).place()].append(row);
    }
    QVector<bool> isTaken(m_entries.size(), false);
    for (const QString &known : knownSources) {
        const QString source = normalised(known);
        const QString identity = SourceParts::identity(source);
        if (merged.m_rows.contains(identity))
            continue;
        int stored = m_rows.value(identity, -1);
        // A disabled source of the system stays disabled when the administrator adds a component to it.
        if (stored < 0 || isTaken.at(stored)) {
            const SourceParts parts = SourceParts::of(source);
            const auto rows = inPlace.value(parts.place());
            const auto grown = std::find_if(rows.cbegin(), rows.cend(), [&](int row) {
                return !isTaken.at(row) && parts.hasGrownFrom(SourceParts::of(m_entries.at(row).source));
            });
            stored = grown == rows.cend() ? -1 : *grown;
        }
        Entry entry;
        if (stored >= 0) {
            entry = m_entries.at(stored);
            isTaken[stored] = true;
        }
        entry.source = source;
        entry.known = true;
        merged.append(entry);
    }
    for (int row = 0; row < m_entries.size(); ++row) {
        Entry entry = m_entries.at(row);
        entry.known = false;
        if (!isTaken.at(row) && (entry.added || !entry.enabled || !entry.alias.isEmpty()))
            merged.append(entry);
    }
    *this = std::move(merged);
}

QString ExternalRepos::aliasOf(const QString &origin) const
{
    const QStringList words = SourceParts::originWords(origin);
    QString alias = origin;
    int best = 0;
    for (const Entry &entry : m_entries) {
        const int points = entry.alias.isEmpty() ? 0 : SourceParts::of(entry.source).fit(words);
        if (points > best) {
            best = points;
            alias = entry.alias;
        }
    }
    return alias;
}

bool ExternalRepos::isOriginAsked(const QString &origin) const
{
    const QStringList words = SourceParts::originWords(origin);
    bool isHeld = false;
    for (const Entry &entry : m_entries) {
        if (SourceParts::of(entry.source).fit(words) == 0)
            continue;
        // An origin does not contain its component, so one enabled entry is enough.
        if (entry.enabled)
            return true;
        isHeld = true;
    }
    return !isHeld;
}

bool ExternalRepos::isOf(const QString &source, const QString &origin)
{
    return SourceParts::of(source).fit(SourceParts::originWords(origin)) > 0;
}

bool ExternalRepos::isAnyAdded() const
{
    return std::any_of(m_entries.cbegin(), m_entries.cend(), [](const Entry &entry) {
        return entry.enabled && entry.added;
    });
}

QStringList ExternalRepos::beyond(const QStringList &known, const QStringList &architectures) const
{
    QVector<SourceParts> lists;
    for (const QString &list : known)
        lists.append(SourceParts::of(list));
    QStringList sources;
    for (const Entry &entry : m_entries) {
        if (!entry.enabled || !entry.added)
            continue;
        const QString source = SourceParts::of(entry.source).unlisted(lists, architectures);
        if (!source.isEmpty())
            sources.append(source);
    }
    return sources;
}

bool ExternalRepos::setSource(const QString &source, int row)
{
    if (!refusalInList(source, row).isEmpty() || (row >= 0 && m_entries.at(row).known))
        return false;
    Entry entry;
    if (row >= 0)
        entry = m_entries.at(row);
    const QString earlier = SourceParts::identity(entry.source);
    entry.source = normalised(source);
    entry.added = true;
    if (row < 0) {
        append(entry);
    } else {
        m_rows.remove(earlier);
        m_rows.insert(SourceParts::identity(entry.source), row);
        m_entries[row] = entry;
    }
    return true;
}

void ExternalRepos::setAlias(int row, const QString &alias)
{
    m_entries[row].alias = visibleAlias(alias);
}

void ExternalRepos::setEnabled(int row, bool enabled)
{
    Entry &entry = m_entries[row];
    // A user who enables a source that apt does not know wants it to be used anyway.
    if (enabled && !entry.enabled && !entry.known)
        entry.added = true;
    entry.enabled = enabled;
}

bool ExternalRepos::remove(int row)
{
    if (m_entries.at(row).known)
        return false;
    m_entries.remove(row);
    findRows();
    return true;
}

// --- rules for a source ------------------------------------------------------------------------------------------

QString ExternalRepos::normalised(const QString &source)
{
    static const QRegularExpression type(QStringLiteral("^deb (?=\\S)"));
    static const QRegularExpression options(QStringLiteral("^\\[ ?([^\\]]*?) ?\\] ?"));
    static const QRegularExpression scheme(QStringLiteral("^[A-Za-z][A-Za-z0-9+.-]*(?=:)"));
    QString text = source.simplified();
    text.remove(type);
    const auto bracket = options.match(text);
    QString rest = text.mid(bracket.capturedLength());
    const auto schemeMatch = scheme.match(rest);
    rest = schemeMatch.captured().toLower() + rest.mid(schemeMatch.capturedLength());
    if (!bracket.hasMatch() || bracket.captured(1).isEmpty())
        return rest;
    return QStringLiteral("[%1] ").arg(bracket.captured(1)) + rest;
}

namespace
{
/** Why apt could not fetch from an address; empty when it can. */
QString addressRefusal(const QString &uri)
{
    static const QRegularExpression expression(
        QStringLiteral("^(?:(?:mirror|tor)\\+)?(?<scheme>[a-z][a-z0-9.-]*):(?<rest>.*)$"));
    static const QRegularExpression host(
        QStringLiteral("^//([^/@\\[\\]]*@)?([^/:@\\[\\]]+|\\[[0-9A-Fa-f:.]+\\])(:[0-9]+)?(/[^\\[\\]]*)?$"));
    static const QRegularExpression path(QStringLiteral("^/[^\\[\\]]*$"));
    const auto match = expression.match(uri);
    if (!match.hasMatch())
        return ExternalRepos::tr(
                   "\"%1\" is not the address of a repository. It begins with http:, https:, ftp: "
                   "or file:.")
            .arg(uri);
    const QString scheme = match.captured(QStringLiteral("scheme"));
    const QString rest = match.captured(QStringLiteral("rest"));
    if (scheme == QLatin1String("cdrom"))
        return ExternalRepos::tr(
            "A disc that apt asks for cannot be searched. Mount it and use a file: address.");
    if (scheme == QLatin1String("file")) {
        if (path.match(rest).hasMatch())
            return {};
        return ExternalRepos::tr("The path behind file: begins with a slash and holds no square brackets.");
    }
    const QStringList withHost{
        QStringLiteral("http"), QStringLiteral("https"), QStringLiteral("ftp"), QStringLiteral("mirror")};
    if (!withHost.contains(scheme))
        return ExternalRepos::tr("Addresses with \"%1:\" cannot be used. Use http:, https:, ftp: or file:.")
            .arg(scheme);
    if (host.match(rest).hasMatch())
        return {};
    return ExternalRepos::tr("The address names no host, or not as in http://example.org/debian.");
}
} // namespace

QString ExternalRepos::refusal(const QString &source)
{
    const QString text = source.trimmed();
    if (std::any_of(text.cbegin(), text.cend(), isInvisible))
        return tr("The line holds a line break or another invisible character.");
    const QString line = normalised(text);
    if (line.isEmpty())
        return tr("Enter the address, the suite and the components of the repository.");
    if (line.startsWith(QLatin1String("deb-src ")))
        return tr("Lines for source packages cannot be used.");
    // Each of these would end or change the line for apt, and one bad line makes apt reject the whole list.
    for (const QChar special : {QLatin1Char('"'), QLatin1Char('#'), QLatin1Char('\\')}) {
        if (line.contains(special))
            return tr("The character %1 cannot stand in a source line.").arg(special);
    }
    const SourceParts parts = SourceParts::of(line);
    static const QRegularExpression option(QStringLiteral("^[A-Za-z-]+[+-]?=[^\\[\\]]+$"));
    const bool optionsFit = std::all_of(parts.options.cbegin(),
                                        parts.options.cend(),
                                        [](const QString &word) { return option.match(word).hasMatch(); });
    if (!optionsFit || parts.uri.startsWith(QLatin1Char('[')))
        return tr("The options in square brackets are not written as in [arch=amd64 trusted=yes].");
    QString address = addressRefusal(parts.uri);
    if (!address.isEmpty())
        return address;
    if (parts.suite.isEmpty())
        return tr("The suite is missing behind the address.");
    const QString names = parts.suite + parts.components.join(QString());
    if (names.contains(QLatin1Char('[')) || names.contains(QLatin1Char(']')))
        return tr("Square brackets stand only around the options, in front of the address.");
    const bool flat = parts.suite.endsWith(QLatin1Char('/'));
    if (flat && !parts.components.isEmpty())
        return tr("A suite that ends in a slash has no components.");
    if (!flat && parts.components.isEmpty())
        return tr("The components are missing. Only a suite that ends in a slash has none.");
    return {};
}

QString ExternalRepos::refusalInList(const QString &source, int row) const
{
    QString reason = refusal(source);
    if (!reason.isEmpty())
        return reason;
    const auto other = m_rows.constFind(SourceParts::identity(normalised(source)));
    if (other != m_rows.constEnd() && *other != row)
        return tr("The list has this repository already.");
    return {};
}
