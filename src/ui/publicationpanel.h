// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "server/publicationsettings.h"

#include <QObject>

#include <optional>

class RepoShell;

namespace Ui
{
class RepoWidget;
}

/**
 * Works the tab "Publication" of a repository: how the repository is to be served, and the line with which clients
 * use it. It keeps the choices of a repository that has a place among the published ones.
 */
class PublicationPanel : public QObject
{
    Q_OBJECT
public:
    /** `ui` and `shell` outlive the panel. */
    PublicationPanel(Ui::RepoWidget &ui, RepoShell &shell, QObject *parent);

    /** Shows the engine's repository; call it when it is another one or its description has changed. */
    void showRepository();
    /** Keeps the choices for the next time, if the repository has a place among the published ones. */
    void saveChoices();
    void copySourceLine();

Q_SIGNALS:
    void publishTriggered();
    void unpublishTriggered();
    void serverTypeChanged(int index);
    void portEditingFinished();
    void statusLabel(const QString &text);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Ui::RepoWidget &m_ui;
    RepoShell &m_shell;
    QString m_repoPath; ///< of the repository that is shown; empty: none
    std::optional<PublicationSettings>
        m_published; ///< the repository's place, as it was when last read or kept
    bool m_addressChosen = false; ///< by the user, or once by them and kept

    void setUpFields();
    void connectFields();
    void showArchitectures(const QStringList &architectures);
    void offerAddresses(const QStringList &addresses, const QString &preferred);
    void restore(const PublicationSettings &settings);
    void followMove(const QString &newPath);
    bool isAddressComplete() const;
    bool serves(int protocol) const;
    void update();
    QString sourceLine() const;
    QString whatIsMissing() const;
};
