// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/archive/packagecontents.h"

#include <QWidget>

class QLabel;
class QPlainTextEdit;

/** A text of a package that is read and searched, and a line that says what is special about it. */
class TextPage : public QWidget
{
    Q_OBJECT
public:
    /** `name` is the accessible name. */
    explicit TextPage(const QString &name, QWidget *parent = nullptr);

    void setText(const PackageContents::Text &text);
    /** There is no text, for this reason. */
    void setReason(const QString &reason);
    /** Marks the places of the text, and goes to the first one from the cursor on. Returns their number. */
    int search(const QString &text);
    /** Goes to the next place, or to the previous one, and from the end round to the beginning. */
    void searchAgain(bool backwards);
    void focusText();

private:
    QLabel *m_about;
    QPlainTextEdit *m_view;
    QString m_searched;
};
