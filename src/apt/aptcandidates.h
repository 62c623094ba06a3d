// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/candidatesource.h"
#include "core/processutils.h"
#include "files/scratchfolder.h"

#include <QHash>
#include <QSet>

#include <memory>

/**
 * What apt's sources offer, asked in few runs for many names each and remembered as long as this lives, which is one
 * job. The versions and labels are those of AptUtils::packageVersions(). A name that apt does not know is an answer;
 * when apt itself fails, nothing is offered, nothing more is asked, and failed() tells it.
 */
class AptCandidates : public CandidateSource
{
public:
    /** Whether the source with this origin text counts. */
    using OriginFilter = std::function<bool(const QString &origin)>;

    /** `sourceList` is read in place of apt's main list, see AptUtils::privateSourcesFile(); empty for the system's. */
    explicit AptCandidates(QString sourceList = QString(), OriginFilter accepts = OriginFilter());

    bool prefetch(const QVector<PackageQuestion> &questions, const StopRequest &stopped) override;
    /** apt reads no lists for architectures that it has not been told of. */
    bool canAnswer(const PackageQuestion &question) const override;
    QVector<Candidate> candidates(const PackageQuestion &question) const override;
    bool prefetchProviders(const QVector<PackageQuestion> &questions, const StopRequest &stopped) override;
    QVector<Provider> providers(const PackageQuestion &question) const override;

    /** apt could not be asked; the answers are not complete. */
    bool failed() const { return m_failed; }
    /** For the user, in a few words; empty unless failed(). */
    QString errorText() const;
    /** What apt said about it. */
    QString errorDetail() const { return m_errorDetail; }
    /** apt was asked for versions and has no list of any source. May run apt once more to find out. */
    bool lacksSources();

private:
    using Answers = QHash<PackageQuestion, QVector<Candidate>>;
    /** Takes in what a run has printed. */
    using Reader = std::function<void(const QString &output)>;

    /** Whether apt can be asked; false also for an architecture that it does not know. */
    bool isAskable(const PackageQuestion &question) const;
    /** Learns how apt is set up here and finds a place for its cache file; false when apt cannot be asked. */
    bool prepare(const StopRequest &stopped);
    /** Runs "apt-cache command word…" until all words are through or a run fails; false when it was stopped. */
    bool
    ask(const QString &command, const QStringList &words, const StopRequest &stopped, const Reader &reader);
    /** False when it failed or was stopped. */
    bool
    run(const QString &program, const QStringList &arguments, const StopRequest &stopped, QString &output);
    /** What every run gets besides its words. */
    QStringList options() const;
    void readVersions(const QString &policy);

    QString m_sourceList;
    OriginFilter m_accepts;
    bool m_prepared = false;
    bool m_failed = false;
    bool m_hasSources = false; ///< some answer named one
    QString m_errorDetail;
    QString m_architecture; ///< the system's own, which apt leaves out of names
    QSet<QString> m_architectures; ///< all that apt knows, its own among them; empty before it was asked
    std::unique_ptr<ScratchFolder>
        m_cache; ///< apt's cache file, where the system's own place is not to be had
    QSet<PackageQuestion> m_asked;
    Answers m_answers;
    QSet<QString> m_askedProviders;
    QHash<QString, QVector<Provider>> m_providers;
};
