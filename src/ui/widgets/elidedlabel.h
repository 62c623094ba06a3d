// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>

/** A one-line label for text of any length: what does not fit is left out at the end, and shown as a tool tip. */
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
