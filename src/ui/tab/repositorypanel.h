// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "signing/repositorykey.h"

#include <QWidget>

#include <memory>

class RepoShell;

namespace Ui
{
class RepositoryPanel;
}

/**
 * The tab "Common" of a repository: its description and, when it is signed, the key that signs it and how clients come
 * to know that key.
 */
class RepositoryPanel : public QWidget
{
    Q_OBJECT
public:
    /** The tab owns both. The destructor may not use `shell`, which the tab deletes first. */
    explicit RepositoryPanel(RepoShell &shell, QWidget *parent = nullptr);
    ~RepositoryPanel() override;

    /** Shows the engine's repository. Call it when the repository or its description has changed. */
    void showRepository();

    /** File name for a repository's public key. Any repository name gives a name that a source line can contain. */
    static QString keyFileName(const QString &repositoryName);

Q_SIGNALS:
    /** The user wants the public part of this key in the clipboard. */
    void copyKeyTriggered(const QString &keyId);
    /** The user wants the public part of this key in a file. */
    void saveKeyTriggered(const QString &keyId);

private:
    void readKey();
    void showKey(const RepositoryKey &key);

    std::unique_ptr<Ui::RepositoryPanel> m_ui;
    RepoShell &m_shell;
    QString m_repoPath; ///< of the shown repository
    QString m_keyId; ///< empty: unknown
    int m_reading = 0; ///< number of the last reading; results of earlier readings are ignored
};
