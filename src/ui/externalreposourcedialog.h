// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include <functional>

class QLabel;
class QLineEdit;
class QPushButton;

/** Asks for the source line of an external repository and says while it is typed why it cannot be used. */
class ExternalRepoSourceDialog : public QDialog
{
    Q_OBJECT
public:
    /** Why a source cannot be used, in words for the user; empty when it can. */
    using Check = std::function<QString(const QString &)>;

    /** `source` is empty for a new one. */
    ExternalRepoSourceDialog(const QString &source, Check check, QWidget *parent = nullptr);

    QString source() const;

private:
    void judge();

    Check m_check;
    QLineEdit *m_sourceLineEdit;
    QLabel *m_refusalLabel;
    QPushButton *m_okButton;
};
