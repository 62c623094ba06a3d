// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include <functional>

class QLabel;
class QLineEdit;
class QPushButton;

/** Asks for the source line and the alias of a repository and says while one types why the line cannot be used. */
class ExternalRepoSourceDialog : public QDialog
{
    Q_OBJECT
public:
    /** Why a source cannot be used, in words for the user; empty when it can. */
    using Check = std::function<QString(const QString &)>;

    /** `source` is empty for a new one. */
    ExternalRepoSourceDialog(const QString &source,
                             const QString &alias,
                             Check check,
                             QWidget *parent = nullptr);

    QString source() const;
    QString alias() const;

private:
    void judge();

    Check m_check;
    QLineEdit *m_sourceLineEdit;
    QLineEdit *m_aliasLineEdit;
    QLabel *m_refusalLabel;
    QPushButton *m_okButton;
};
