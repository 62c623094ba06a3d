// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>
#include <QTimer>

/** A line edit that reports what the user typed once they pause, so that a search does not run at every key. */
class DelayedLineEdit : public QLineEdit
{
    Q_OBJECT
public:
    static constexpr int DelayMilliseconds = 300;

    explicit DelayedLineEdit(QWidget *parent = nullptr);

Q_SIGNALS:
    /** The user has paused after one or more edits. */
    void delayedTextChanged(const QString &text);

private:
    QTimer m_timer;
};
