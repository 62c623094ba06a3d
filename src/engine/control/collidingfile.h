// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/** A file that a job adds, while the user is asked about its collision with a package of the repository. */
struct CollidingFile
{
    QString fileName;
    QString version;
    bool isLast = false; ///< no further file of this job can collide
    QStringList architectures = {}; ///< for which the package of the repository has the same file
};
