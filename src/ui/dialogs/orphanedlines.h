// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <QWidget>

class QListWidget;

/** Names the source lines of this machine whose publication is gone, and offers to remove them. Hidden without any. */
class OrphanedLines : public QWidget
{
    Q_OBJECT
public:
    explicit OrphanedLines(QWidget *parent);

    void setLines(const QStringList &lines);

Q_SIGNALS:
    void removalRequested(const QString &line);

private:
    QListWidget *m_list;
};
