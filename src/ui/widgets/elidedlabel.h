// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>

/**
 * A one-line label for a text of any length. If the text is too long, its end is cut off, and a tool tip shows the
 * text.
 *
 * KSqueezedTextLabel is not used. Its tool tip is the whole text as it is, however long. A text from a program or a
 * repository that looks like HTML would be shown as HTML.
 */
class ElidedLabel : public QLabel
{
    Q_OBJECT
public:
    explicit ElidedLabel(QWidget *parent = nullptr);

    void setFullText(const QString &text);
    QString fullText() const { return m_fullText; }

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void elide();

    QString m_fullText;
};
