// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/gathering/gatherplan.h"
#include "ui/widgets/checktabledialog.h"

#include <functional>

class QPlainTextEdit;

/** Lets the user choose which missing packages are fetched, and tells what stays missing. At first all are chosen. */
class GatherDialog : public CheckTableDialog
{
    Q_OBJECT
public:
    /** `alias` returns the user's name for an origin. */
    GatherDialog(GatherPlan plan,
                 const std::function<QString(const QString &origin)> &alias,
                 QWidget *parent);

    /** With the rows on that are chosen. */
    const GatherPlan &plan() const { return m_plan; }
    /** Whether the user has confirmed with the button for the preview. */
    bool wantsPreview() const { return m_wantsPreview; }

private:
    GatherPlan m_plan;
    QPlainTextEdit *m_left;
    bool m_wantsPreview = false;

    void takeChoice();
};
