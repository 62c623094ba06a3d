// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/aptcandidates.h"

#include <memory>

/** The candidates of apt's sources and of those that the user added, together. Like AptCandidates it serves one job. */
class PublicCandidates : public CandidateSource
{
public:
    /** `addedEnvironment` is that of an apt for the added sources; empty: there are none. */
    explicit PublicCandidates(const AptCandidates::OriginFilter &accepts,
                              const QStringList &addedEnvironment = {});

    bool prefetch(const QVector<PackageQuestion> &questions, const StopRequest &stopped) override;
    /** An added source may know architectures that apt does not. Only what it has is an answer then. */
    bool canAnswer(const PackageQuestion &question) const override;
    QVector<Candidate> candidates(const PackageQuestion &question) const override;
    void getReady(const StopRequest &stopped) override;
    bool prefetchProviders(const QVector<PackageQuestion> &questions, const StopRequest &stopped) override;
    QVector<Provider> providers(const PackageQuestion &question) const override;

    /** One of them could not be asked; the answers are incomplete. */
    bool failed() const { return m_apt.failed() || (m_added && m_added->failed()); }
    /** A short text for the user; empty unless failed(). */
    QString errorText() const;
    /** The error output of apt. */
    QString errorDetail() const;
    /** True when apt was asked for versions and nobody has a list of any source. May run apt once more. */
    bool lacksSources();

private:
    AptCandidates m_apt;
    std::unique_ptr<AptCandidates> m_added; ///< null without added sources
};
