// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/installability/baseoffers.h"
#include "engine/installability/checkscope.h"
#include "engine/preview/changepreview.h"

#include <QList>

/**
 * Which packages can be installed only before, or only after a change: here and in the other repositories of the scope.
 * Reads the base, runs apt, and works for seconds: not for the interface thread.
 */
class InstallabilityEffect
{
public:
    /** The repository as it is, and as it would be. */
    struct States
    {
        CheckScope before;
        RepositorySnapshot after;
        QVector<PreviewRow> rows; ///< of the change between them
    };

    InstallabilityEffect(States states, StopRequest stopped);

    /** Sets what is lost and gained; false after a stop. */
    bool find(PreviewEffect *effect);

private:
    /** What a system is asked about. */
    struct Question
    {
        const CheckScope &before; ///< of the repository whose packages are asked about
        const CheckScope &after;
        const RepositorySnapshot *neighbourBefore; ///< the changed repository, when it is another one
        const RepositorySnapshot *neighbourAfter;
        QString architecture;
        PackageType type;
    };

    States m_states;
    StopRequest m_stopped;
    BaseOffers m_offers;
    QList<PackageInfoPtr> m_gone;
    QList<PackageInfoPtr> m_coming;

    bool isStopped() const { return m_stopped && m_stopped(); }
    void ask(const Question &question, PreviewEffect *effect) const;
};
