// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "signing/repositorykey.h"

#include <QObject>

class RepoShell;

namespace Ui
{
class RepoWidget;
}

/** Shows, on a signed repository's page, which key signs it, and how clients come to know that key. */
class RepositoryKeyPanel : public QObject
{
    Q_OBJECT
public:
    /** `ui` and `shell` outlive the panel. */
    RepositoryKeyPanel(Ui::RepoWidget &ui, RepoShell &shell, QObject *parent);

    /** Shows the engine's repository; call it when it is another one or its description has changed. */
    void showRepository();

    /** File name of a repository's public key; it can stand in a source line whatever the repository is called. */
    static QString keyFileName(const QString &repositoryName);

Q_SIGNALS:
    void copyTriggered(const QString &keyId);
    void saveTriggered(const QString &keyId);

private:
    void readKey();
    void show(const RepositoryKey &key);

    Ui::RepoWidget &m_ui;
    RepoShell &m_shell;
    QString m_repoPath; ///< of the repository that is shown
    QString m_keyId; ///< empty: not known
    int m_reading = 0; ///< number of the last reading; what an earlier one finds is out of date
};
