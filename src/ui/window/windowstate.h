// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/depends/dependsarrangement.h"

#include <QList>
#include <QString>

class QSettings;

/** The user's arrangement of the window, without its geometry. An invalid stored value counts as absent. */
struct WindowState
{
    bool extendedLog = false; ///< the log is shown
    bool statusLineHidden = false;
    QList<int> splitterSizes; ///< widths of the tree and the details in pixels; empty: those of the form
    DependsArrangement depends;
    QString currentRepository; ///< directory of the tab in front

    static WindowState load(const QSettings &settings);
    void save(QSettings &settings) const;
};
