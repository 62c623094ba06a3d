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
    /** `shell` outlives the panel. */
    explicit RepositoryPanel(RepoShell &shell, QWidget *parent = nullptr);
    ~RepositoryPanel() override;

    /** Shows the engine's repository; call it when it is another one or its description has changed. */
    void showRepository();

    /** File name of a repository's public key; it can stand in a source line whatever the repository is called. */
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
    QString m_repoPath; ///< of the repository that is shown
    QString m_keyId; ///< empty: not known
    int m_reading = 0; ///< number of the last reading; what an earlier one finds is out of date
};
