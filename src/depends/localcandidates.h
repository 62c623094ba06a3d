// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/candidatesource.h"

#include <QCoreApplication>
#include <QMultiHash>

class DependsParser;

/**
 * The packages of a repository as candidates, read from their records. A name can have several versions, one in each
 * component. The Provides fields are read at the first question about providers.
 */
class LocalCandidates : public CandidateSource
{
    Q_DECLARE_TR_FUNCTIONS(LocalCandidates)
public:
    explicit LocalCandidates(const QList<PackageInfoPtr> &packages);

    /** The packages of this name for the architecture, in no particular order. */
    QVector<PackageInfoPtr> find(const PackageQuestion &question) const;

    bool prefetch(const QVector<PackageQuestion> &questions, const StopRequest &stopped) override;
    QVector<Candidate> candidates(const PackageQuestion &question) const override;
    bool prefetchProviders(const QVector<PackageQuestion> &questions, const StopRequest &stopped) override;
    QVector<Provider> providers(const PackageQuestion &question) const override;

    /** The name of the repository in a list of sources. */
    static QString label() { return tr("Local"); }
    /** Whether the repository itself meets the dependency, according to the last check. */
    static bool meets(const Dependency &dependency);

private:
    struct Provision
    {
        PackageInfoPtr package;
        QString version; ///< version of the provided name
    };

    void addProvided(const PackageInfoPtr &package, DependsParser &parser);

    QMultiHash<QString, PackageInfoPtr> m_packages;
    QMultiHash<QString, Provision> m_providers; ///< by provided name
    bool m_providersRead = false;
    QString m_label = label();
};
