// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "installability/installsystem.h"

#include <QByteArray>
#include <QSet>
#include <QString>

/** The independent judge: a complete solver for Debian packages. */
namespace DoseDebcheck
{
/** "NAME VERSION ARCHITECTURE" of each package that cannot be installed. */
struct Verdict
{
    QSet<QString> broken;
    QString error; ///< why there is no verdict; else empty
};

/** Judges the packages of an index file. `options` are further ones of the program. */
Verdict judgeFile(const QString &file, const InstallSystem &system, const QStringList &options = {});
/** Judges the packages of an index. */
Verdict judge(const QByteArray &index, const InstallSystem &system, const QStringList &options = {});

/** The packages in its report that are "broken". The report is YAML of a fixed form, with one value a line. */
QSet<QString> brokenIn(const QString &report);
} // namespace DoseDebcheck
