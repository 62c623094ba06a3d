// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/candidatesource.h"
#include "core/processutils.h"
#include "files/scratchfolder.h"

#include <QHash>
#include <QSet>

#include <memory>

/**
 * The candidates of apt's sources. It asks for many names in a few runs and remembers the answers as long as the object
 * lives, which is one job. Versions and labels are the same as in AptUtils::packageVersions(). An unknown name is an
 * answer too. When apt fails, there are no candidates, apt is not asked again, and failed() is true.
 */
class AptCandidates : public CandidateSource
{
public:
    /** Whether the source with this origin text is used. */
    using OriginFilter = std::function<bool(const QString &origin)>;

    /**
     * apt reads `sourceList` instead of its main list, see AptUtils::privateSourcesFile(); empty: the system's list.
     * `environment` is for apt, see PrivateApt::environment().
     */
    explicit AptCandidates(QString sourceList = QString(),
                           OriginFilter accepts = OriginFilter(),
                           QStringList environment = {});

    bool prefetch(const QVector<PackageQuestion> &questions, const StopRequest &stopped) override;
    /** apt reads no lists for architectures that are not configured. */
    bool canAnswer(const PackageQuestion &question) const override;
    QVector<Candidate> candidates(const PackageQuestion &question) const override;
    /** Lets apt create its cache file. The first question reports errors. */
    void getReady(const StopRequest &stopped) override;
    bool prefetchProviders(const QVector<PackageQuestion> &questions, const StopRequest &stopped) override;
    QVector<Provider> providers(const PackageQuestion &question) const override;

    /** apt could not be asked; the answers are incomplete. */
    bool failed() const { return m_failed; }
    /** A short text for the user; empty unless failed(). */
    QString errorText() const;
    /** The error output of apt. */
    QString errorDetail() const { return m_errorDetail; }
    /** True when apt was asked for versions and has no list of any source. May run apt once more. */
    bool lacksSources();

private:
    using Answers = QHash<PackageQuestion, QVector<Candidate>>;
    /** Reads the output of a run. */
    using Reader = std::function<void(const QString &output)>;

    /** Whether apt can be asked; false also for an architecture that apt does not know. */
    bool isAskable(const PackageQuestion &question) const;
    /** Reads apt's configuration and finds a place for its cache file; false when apt cannot be asked. */
    bool prepare(const StopRequest &stopped);
    /** Runs "apt-cache command word…" until all words are done or a run fails; false when it was stopped. */
    bool
    ask(const QString &command, const QStringList &words, const StopRequest &stopped, const Reader &reader);
    /** False when the run failed or was stopped. */
    bool
    run(const QString &program, const QStringList &arguments, const StopRequest &stopped, QString &output);
    /** The options of every run. */
    QStringList options() const;
    void readVersions(const QString &policy);

    QString m_sourceList;
    OriginFilter m_accepts;
    QStringList m_environment;
    bool m_prepared = false;
    bool m_failed = false;
    bool m_hasSources = false; ///< at least one answer named a source
    QString m_errorDetail;
    QString m_architecture; ///< the system's own architecture, which apt omits from names
    QSet<QString> m_architectures; ///< all that apt knows, also its own; empty before apt was asked
    std::unique_ptr<ScratchFolder> m_cache; ///< apt's cache file, when the system's cache file cannot be used
    QSet<PackageQuestion> m_asked;
    Answers m_answers;
    QSet<QString> m_askedProviders;
    QHash<QString, QVector<Provider>> m_providers;
};
