// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <QWidget>

class QListWidget;

/** Lists the source lines of this machine whose publication has ended, and offers their removal. Hidden when empty. */
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
