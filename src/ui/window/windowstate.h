// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/depends/dependsarrangement.h"

#include <QList>
#include <QString>

class QSettings;

/** How the user has arranged the window, beside its geometry. A stored value that makes no sense counts as absent. */
struct WindowState
{
    bool extendedLog = false; ///< the log is shown
    bool statusLineHidden = false;
    QList<int> splitterSizes; ///< widths of tree and details in pixels; empty: the form's own
    DependsArrangement depends;
    QString currentRepository; ///< directory of the tab in front

    static WindowState load(const QSettings &settings);
    void save(QSettings &settings) const;
};
