// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include <functional>

class QLabel;
class QLineEdit;
class QPushButton;

/**
 * Asks for the source line and the alias of a repository. While the user types, it shows why the line cannot be used.
 */
class ExternalRepoSourceDialog : public QDialog
{
    Q_OBJECT
public:
    /** Text for the user: why a source cannot be used; empty when it can. */
    using Check = std::function<QString(const QString &)>;

    /** `source` is empty for a new source. */
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
