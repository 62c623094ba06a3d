// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/preview/changepreview.h"

#include <QTreeWidget>

class QAction;

/** The effect of a change in words: what can be installed then, what clients get, sizes, and who signs. */
class PreviewEffectView : public QTreeWidget
{
    Q_OBJECT
public:
    explicit PreviewEffectView(QWidget *parent = nullptr);

    /** Shows what is known of the effect of a preview. */
    void showEffect(const ChangePreview &preview);

private:
    void addBroken(const ChangePreview &preview);
    void addPackages(const QString &title,
                     const QVector<PreviewLoss> &packages,
                     const QString &repository,
                     const char *icon);
    void addLines(const QString &title, const QStringList &lines);
    QTreeWidgetItem *addGroup(const QString &title, const char *icon = nullptr);
    void copySelected();

    QAction *m_copyAction;
};
