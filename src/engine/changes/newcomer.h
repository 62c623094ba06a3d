// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/** A file on its way into a repository that collides with a package which is there. */
struct Newcomer
{
    QString fileName;
    QString version;
    bool isLast = false; ///< nothing follows in this job that could collide
    QStringList architectures = {}; ///< that the package which is there stands in with one file
};
