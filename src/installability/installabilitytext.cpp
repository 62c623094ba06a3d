// SPDX-License-Identifier: GPL-3.0-or-later
#include "installability/installabilitytext.h"

#include "apt/versionorder.h"
#include "core/countof.h"
#include "core/relationtext.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace
{
constexpr int ListedTexts = 5;
constexpr int NameLength = 80; ///< far more than any real name or version has
constexpr int SummaryLength = 300;

const QString All = QStringLiteral("all");

QString decoded(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

/** What an entry of a relation field asks for. */
struct Entry
{
    QSet<QString> names; ///< of all alternatives
    int alternatives = 0;
    // Of the first alternative:
    QString name;
    QString qualifier;
    QString op;
    QString version;

    explicit Entry(const QString &relation)
    {
        const QByteArray bytes = relation.toUtf8();
        std::string_view rest(bytes.constData(), static_cast<std::size_t>(bytes.size()));
        while (!rest.empty()) {
            RelationText read;
            if (!readRelation(takePiece(rest, '|'), read))
                continue;
            names.insert(decoded(read.name));
            if (++alternatives > 1)
                continue;
            name = decoded(read.name);
            qualifier = decoded(read.qualifier);
            op = decoded(read.op);
            version = decoded(read.version);
        }
    }

    bool isFor(const NamedPackage &package) const { return names.contains(package.name); }
    bool asksForOlder() const { return op.startsWith(QLatin1Char('<')); }
    bool asksForNewer() const { return op.startsWith(QLatin1Char('>')); }
    bool allows(const QString &other) const
    {
        return op.isEmpty() || VersionOrder::holds(other, op, version);
    }
};

/** Names the packages of one reason so that no two of them look alike. */
class Names
{
public:
    explicit Names(const QVector<InstallabilityStep> &reason)
    {
        // An essential package is needed by no package.
        const auto first = std::find_if(
            reason.cbegin(), reason.cend(), [](const auto &step) { return !step.package.name.isEmpty(); });
        if (first != reason.cend() && first->package.architecture != All)
            m_own = first->package.architecture;
        for (const InstallabilityStep &step : reason) {
            if (!step.package.name.isEmpty())
                add(step.package);
            std::for_each(
                step.targets.cbegin(), step.targets.cend(), [this](const auto &target) { add(target); });
        }
        // A package for "all" says nothing about the system, but the only other architecture does.
        if (m_own.isEmpty() && m_architectures.size() == 1)
            m_own = *m_architectures.cbegin();
    }

    QString of(const NamedPackage &package) const
    {
        return named(package, m_versions.value(package.name).isSeveral);
    }
    /** For a sentence that tells the version itself. */
    QString withoutVersion(const NamedPackage &package) const { return named(package, false); }
    QString withVersion(const NamedPackage &package) const { return named(package, true); }

    template <typename Name>
    QString listed(const QVector<NamedPackage> &packages, Name name) const
    {
        QStringList texts;
        QSet<QString> known;
        for (const NamedPackage &package : packages) {
            const QString text = name(package);
            if (known.contains(text))
                continue;
            known.insert(text);
            texts.append(text);
        }
        return InstallabilityText::listed(texts);
    }
    QString listed(const QVector<NamedPackage> &packages) const
    {
        return listed(packages, [this](const NamedPackage &package) { return of(package); });
    }
    QString listedWithVersions(const QVector<NamedPackage> &packages) const
    {
        return listed(packages, [this](const NamedPackage &package) { return withVersion(package); });
    }

private:
    struct Seen
    {
        QString first;
        bool isSeveral = false;

        void add(const QString &text)
        {
            if (first.isEmpty())
                first = text;
            isSeveral = isSeveral || text != first;
        }
    };

    QHash<QString, Seen> m_versions; ///< by name
    QHash<QString, Seen> m_architecturesOf; ///< by name
    QSet<QString> m_architectures; ///< without "all"
    QString m_own; ///< the architecture of the checked package, which needs not be told

    void add(const NamedPackage &package)
    {
        m_versions[package.name].add(package.version);
        m_architecturesOf[package.name].add(package.architecture);
        if (package.architecture != All && !package.architecture.isEmpty())
            m_architectures.insert(package.architecture);
    }
    QString named(const NamedPackage &package, bool withVersion) const
    {
        const bool isElsewhere = package.architecture != m_own && package.architecture != All;
        return InstallabilityText::name(
            package, withVersion, isElsewhere || m_architecturesOf.value(package.name).isSeveral);
    }
};

/** The words of the steps of one reason. */
class Sentences
{
    Q_DECLARE_TR_FUNCTIONS(InstallabilityText)
public:
    explicit Sentences(const QVector<InstallabilityStep> &reason)
        : m_names(reason)
    { }

    QString of(const InstallabilityStep &step) const
    {
        switch (step.kind) {
        case InstallabilityStep::Needs:
            return needs(step);
        case InstallabilityStep::Lacks:
            return lacks(step);
        case InstallabilityStep::Excludes:
            break;
        }
        return step.field.isEmpty() ? namesakes(step) : excludes(step);
    }

    /** Whether the sentence tells nothing but what is needed, so that several of a package can be one. */
    bool isPlain(const InstallabilityStep &step) const
    {
        return step.kind == InstallabilityStep::Needs && !isEssential(step)
               && candidates(step, Entry(step.relation)) == Plain;
    }
    QString needs(const InstallabilityStep &step, const QString &needed) const
    {
        return isPreDepends(step)
                   ? tr("%1 needs %2 before it can be unpacked").arg(m_names.of(step.package), needed)
                   : tr("%1 needs %2").arg(m_names.of(step.package), needed);
    }

private:
    /** What the candidates of an entry add to its words. */
    enum Candidates { Plain, OnlyProviders, Some };

    const Names m_names;

    static bool isPreDepends(const InstallabilityStep &step)
    {
        return step.field == QLatin1String("Pre-Depends");
    }
    static bool isEssential(const InstallabilityStep &step)
    {
        return step.field == QLatin1String("Essential");
    }
    static Candidates candidates(const InstallabilityStep &step, const Entry &entry);
    QString needs(const InstallabilityStep &step) const;
    QString lacks(const InstallabilityStep &step) const;
    QString lacksOnlyName(const InstallabilityStep &step, const Entry &entry) const;
    QString lacksArchitecture(const InstallabilityStep &step, const Entry &entry) const;
    QString excludes(const InstallabilityStep &step) const;
    QString namesakes(const InstallabilityStep &step) const;
};

Sentences::Candidates Sentences::candidates(const InstallabilityStep &step, const Entry &entry)
{
    QSet<QString> named;
    bool hasProvider = false;
    for (const NamedPackage &target : step.targets) {
        if (entry.isFor(target))
            named.insert(target.name);
        else
            hasProvider = true;
    }
    if (hasProvider)
        return entry.alternatives == 1 && named.isEmpty() ? OnlyProviders : Some;
    return named.size() == entry.names.size() || step.targets.isEmpty() ? Plain : Some;
}

QString Sentences::needs(const InstallabilityStep &step) const
{
    const QString relation = InstallabilityText::shown(step.relation);
    if (isEssential(step))
        return tr("every system has %1, because it is essential").arg(relation);
    const QString name = m_names.of(step.package);
    switch (candidates(step, Entry(step.relation))) {
    case OnlyProviders:
        return (isPreDepends(step) ? tr("%1 needs %2, provided by %3, before it can be unpacked")
                                   : tr("%1 needs %2, provided by %3"))
            .arg(name, relation, m_names.listed(step.targets));
    case Some:
        return (isPreDepends(step) ? tr("%1 needs %2 before it can be unpacked; only %3 could meet this")
                                   : tr("%1 needs %2; only %3 could meet this"))
            .arg(name, relation, m_names.listed(step.targets));
    case Plain:
        break;
    }
    return needs(step, relation);
}

QString Sentences::lacks(const InstallabilityStep &step) const
{
    const Entry entry(step.relation);
    if (entry.alternatives == 1)
        return lacksOnlyName(step, entry);
    const QString relation = InstallabilityText::shown(step.relation);
    const QString name = m_names.of(step.package);
    if (step.targets.isEmpty() || !entry.asksForNewer() || step.targets.first().name != entry.name
        || entry.allows(step.targets.first().version))
        return tr("%1 needs %2; none of these is at hand as it is needed").arg(name, relation);
    const NamedPackage &newest = step.targets.first();
    return tr("%1 needs %2; the newest %3 at hand is %4, and nothing meets the other alternatives")
        .arg(name,
             relation,
             m_names.withoutVersion(newest),
             InstallabilityText::shown(newest.version, NameLength));
}

QString Sentences::lacksOnlyName(const InstallabilityStep &step, const Entry &entry) const
{
    const QString relation = InstallabilityText::shown(step.relation);
    const QString name = m_names.of(step.package);
    QVector<NamedPackage> named;
    std::copy_if(step.targets.cbegin(),
                 step.targets.cend(),
                 std::back_inserter(named),
                 [&](const auto &target) { return entry.isFor(target); });
    if (step.targets.isEmpty())
        return tr("%1 needs %2; nothing at hand is called %3")
            .arg(name, relation, InstallabilityText::shown(entry.name, NameLength));
    if (named.isEmpty())
        return tr("%1 needs %2; what is provided by %3 does not meet this")
            .arg(name, relation, m_names.listed(step.targets));
    const bool isVersion = std::none_of(
        named.cbegin(), named.cend(), [&](const auto &target) { return entry.allows(target.version); });
    if (!isVersion)
        return lacksArchitecture(step, entry);
    const auto version
        = [](const NamedPackage &package) { return InstallabilityText::shown(package.version, NameLength); };
    if (entry.asksForNewer())
        return tr("%1 needs %2; the newest %3 at hand is %4")
            .arg(name, relation, m_names.withoutVersion(named.first()), version(named.first()));
    if (entry.asksForOlder())
        return tr("%1 needs %2; the oldest %3 at hand is %4")
            .arg(name, relation, m_names.withoutVersion(named.last()), version(named.last()));
    return tr("%1 needs %2; all that is at hand is %3")
        .arg(name, relation, m_names.listedWithVersions(named));
}

QString Sentences::lacksArchitecture(const InstallabilityStep &step, const Entry &entry) const
{
    const QString relation = InstallabilityText::shown(step.relation);
    const QString name = m_names.of(step.package);
    // The version would do, so the architecture of the package or its field Multi-Arch does not.
    const bool isForOne
        = entry.qualifier != QLatin1String("any") && entry.qualifier != QLatin1String("native");
    const QString wanted
        = isForOne && !entry.qualifier.isEmpty() ? entry.qualifier : step.package.architecture;
    QStringList architectures;
    for (const NamedPackage &target : step.targets) {
        if (entry.isFor(target) && entry.allows(target.version)
            && !architectures.contains(target.architecture))
            architectures.append(target.architecture);
    }
    const bool isElsewhere
        = isForOne && wanted != All && !architectures.contains(wanted) && !architectures.contains(All);
    const QString needed = InstallabilityText::shown(entry.name, NameLength);
    if (isElsewhere)
        return tr("%1 needs %2; %3 is at hand only for %4")
            .arg(name, relation, needed, InstallabilityText::listed(architectures));
    return tr("%1 needs %2; the field Multi-Arch of %3 does not allow this").arg(name, relation, needed);
}

QString Sentences::excludes(const InstallabilityStep &step) const
{
    const Entry entry(step.relation);
    const bool isConflict = step.field == QLatin1String("Conflicts");
    const QString name = m_names.of(step.package);
    if (!isConflict && step.field != QLatin1String("Breaks"))
        return tr("%1 cannot be installed together with %2").arg(name, m_names.listed(step.targets));
    const QString relation = InstallabilityText::shown(step.relation);
    const auto named = std::find_if(
        step.targets.cbegin(), step.targets.cend(), [&](const auto &t) { return entry.isFor(t); });
    if (!step.targets.isEmpty() && named == step.targets.cend())
        return (isConflict ? tr("%1 conflicts with %2, provided by %3") : tr("%1 breaks %2, provided by %3"))
            .arg(name, relation, m_names.listed(step.targets));
    if (step.targets.size() > 1)
        return (isConflict ? tr("%1 conflicts with %2, which is true of %3")
                           : tr("%1 breaks %2, which is true of %3"))
            .arg(name, relation, m_names.listedWithVersions(step.targets));
    if (step.targets.isEmpty() || entry.op.isEmpty())
        return (isConflict ? tr("%1 conflicts with %2") : tr("%1 breaks %2")).arg(name, relation);
    return (isConflict ? tr("%1 conflicts with %2, and %3 is %4") : tr("%1 breaks %2, and %3 is %4"))
        .arg(name,
             relation,
             m_names.withoutVersion(*named),
             InstallabilityText::shown(named->version, NameLength));
}

QString Sentences::namesakes(const InstallabilityStep &step) const
{
    const NamedPackage &package = step.package;
    const bool isSameArchitecture
        = std::all_of(step.targets.cbegin(), step.targets.cend(), [&](const auto &other) {
              return other.architecture == package.architecture;
          });
    const QString name = InstallabilityText::name(package, false, false);
    QStringList versions{InstallabilityText::shown(package.version, NameLength)};
    QStringList architectures{package.architecture};
    for (const NamedPackage &other : step.targets) {
        versions.append(InstallabilityText::shown(other.version, NameLength));
        architectures.append(other.architecture);
    }
    versions.removeDuplicates();
    architectures.removeDuplicates();
    if (isSameArchitecture && versions.size() > 1)
        return tr("only one version of %1 can be installed: %2 exclude each other")
            .arg(name, InstallabilityText::listed(versions));
    if (versions.size() == 1)
        return tr("%1 cannot be installed for %2 at the same time")
            .arg(name, InstallabilityText::listed(architectures));
    const QVector<NamedPackage> all = QVector<NamedPackage>{package} + step.targets;
    return tr("%1 cannot be installed at the same time").arg(m_names.listedWithVersions(all));
}
} // namespace

QString InstallabilityText::state(const InstallabilityInfo &info)
{
    switch (info.state) {
    case Installable:
        return tr("can be installed");
    case NotInstallable:
        return tr("cannot be installed");
    case InstallabilityUndecided:
        if (info.seconds == 0)
            return tr("undecided: there are too many relations between packages");
        return tr("undecided after %n second(s)", "", info.seconds);
    case InstallabilityUnknown:
        break;
    }
    return tr("not checked");
}

QString InstallabilityText::base(const CompleteCheckBase &base)
{
    QString text;
    switch (base.kind) {
    case CompleteCheckBase::Nothing:
        text = tr("the repository alone");
        break;
    case CompleteCheckBase::Essential:
        text = tr("the repository and the essential packages of the public sources");
        break;
    case CompleteCheckBase::Public:
        text = tr("the repository and the public sources");
        break;
    case CompleteCheckBase::Repository:
        text = tr("the repository and the repository %1").arg(shown(base.repository));
        break;
    }
    if (base.foreignArchitectures.isEmpty())
        return text;
    return tr("%1, on a system that also takes packages for %2").arg(text, listed(base.foreignArchitectures));
}

QString InstallabilityText::sentence(const InstallabilityStep &step)
{
    return Sentences({step}).of(step);
}

QStringList InstallabilityText::sentences(const QVector<InstallabilityStep> &reason)
{
    const Sentences words(reason);
    QStringList texts;
    for (auto step = reason.cbegin(); step != reason.cend();) {
        QStringList needed;
        auto next = step;
        while (next != reason.cend() && needed.size() < ListedTexts && next->package == step->package
               && next->field == step->field && words.isPlain(*next)) {
            needed.append(shown(next->relation));
            ++next;
        }
        if (needed.size() > 1) {
            texts.append(words.needs(*step, listed(needed)));
            step = next;
        } else {
            texts.append(words.of(*step));
            ++step;
        }
    }
    return texts;
}

QString InstallabilityText::summary(const InstallabilityInfo &info)
{
    if (info.state != NotInstallable || info.reason.isEmpty())
        return state(info);
    QStringList texts = sentences(info.reason);
    if (texts.size() > 3)
        texts = QStringList{texts.first(), QStringLiteral("…"), texts.last()};
    return shown(texts.join(QLatin1String("; ")), SummaryLength);
}

QString InstallabilityText::name(const NamedPackage &package, bool withVersion, bool withArchitecture)
{
    QString text = shown(package.name, NameLength);
    if (withArchitecture && !package.architecture.isEmpty())
        text += QLatin1Char(':') + shown(package.architecture, NameLength);
    if (withVersion)
        text += QLatin1Char(' ') + shown(package.version, NameLength);
    return text;
}

QString InstallabilityText::listed(const QStringList &texts)
{
    QStringList parts;
    for (const QString &text : texts.mid(0, ListedTexts))
        parts.append(shown(text));
    const int more = countOf(texts) - countOf(parts);
    const QString separator = QStringLiteral(", ");
    if (more > 0)
        return tr("%1 and %n more", "", more).arg(parts.join(separator));
    if (parts.size() <= 1)
        return parts.value(0);
    const QString last = parts.takeLast();
    return tr("%1 and %2").arg(parts.join(separator), last);
}

QString InstallabilityText::shown(const QString &text, int length)
{
    QString line = text.simplified();
    if (line.size() > length) {
        int head = length / 2;
        int tail = countOf(line) - (length - head - 1);
        // Half of a character would be shown as a wrong one.
        head -= static_cast<int>(line.at(head - 1).isHighSurrogate());
        tail += static_cast<int>(line.at(tail).isLowSurrogate());
        line = line.left(head) + QChar(0x2026) + line.mid(tail);
    }
    for (QChar &c : line) {
        const QChar::Category category = c.category();
        // The formatting characters could turn the direction of the text around.
        if (category == QChar::Other_Control || category == QChar::Other_Format)
            c = QChar::ReplacementCharacter;
    }
    return line;
}
