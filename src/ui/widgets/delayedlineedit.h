// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>
#include <QTimer>

/**
 * A line edit that tells what was typed when the user pauses. Enter tells it at once; it does not press the default
 * button of a dialog.
 */
class DelayedLineEdit : public QLineEdit
{
    Q_OBJECT
public:
    explicit DelayedLineEdit(QWidget *parent = nullptr);

Q_SIGNALS:
    /** The user has edited the text and then paused, or pressed Enter. */
    void textEditingStoped(const QString &text);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QTimer m_timer; ///< runs while an edit has not been told
};
