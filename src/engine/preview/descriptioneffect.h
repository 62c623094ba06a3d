// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/repository/changerules.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

struct PreviewEffect;

/** What another description of a repository does to its indices and to its clients, in words. Pure. */
class DescriptionEffect
{
    Q_DECLARE_TR_FUNCTIONS(DescriptionEffect)
public:
    struct Change
    {
        RepoChange change;
        QString text; ///< of conf/distributions as it is
        QString oldPath;
        QString newPath; ///< the same when the repository stays where it is
        QString keptAs; ///< name of the file that keeps the text when lines of it are lost
    };

    /** Sets the sentences about the description and the clients. */
    static void fill(PreviewEffect *effect, const Change &change);

    /** What makes apt on a client accept a changed description. */
    static QString acceptingCommand() { return QStringLiteral("apt-get update --allow-releaseinfo-change"); }
};
