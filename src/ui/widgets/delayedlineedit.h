// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>
#include <QTimer>

/**
 * A line edit that reports edits when the user pauses. Enter reports an edit at once and does not press the default
 * button of a dialog.
 */
class DelayedLineEdit : public QLineEdit
{
    Q_OBJECT
public:
    explicit DelayedLineEdit(QWidget *parent = nullptr);

Q_SIGNALS:
    /** The user has edited the text and then paused or pressed Enter. */
    void textEditingStoped(const QString &text);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QTimer m_timer; ///< runs while an edit is not reported yet
};
