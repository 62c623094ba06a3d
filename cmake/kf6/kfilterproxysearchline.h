// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHBoxLayout>
#include <QLineEdit>
#include <QWidget>

/** What the program uses of this widget, which KDE Frameworks 6 has given up in favour of a QLineEdit. */
class KFilterProxySearchLine : public QWidget
{
public:
    explicit KFilterProxySearchLine(QWidget *parent = nullptr)
        : QWidget(parent)
        , m_lineEdit(new QLineEdit(this))
    {
        auto *layout = new QHBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(m_lineEdit);
    }

    QLineEdit *lineEdit() const { return m_lineEdit; }

private:
    QLineEdit *m_lineEdit;
};
