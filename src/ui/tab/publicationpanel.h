// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "publication/publicationmonitor.h"
#include "publication/publicationsettings.h"

#include <QWidget>

#include <memory>
#include <optional>

class RepoShell;

namespace Ui
{
class PublicationPanel;
}

/**
 * The tab "Publication" of a repository: how to serve the repository, and the source line for its clients. It stores
 * the choices of a repository that owns a port in the settings.
 */
class PublicationPanel : public QWidget
{
    Q_OBJECT
public:
    /** The tab owns both. The destructor may not use `shell`, which the tab deletes first. */
    explicit PublicationPanel(RepoShell &shell, QWidget *parent = nullptr);
    ~PublicationPanel() override;

    /** Shows the engine's repository. Call it when the repository or its description has changed. */
    void showRepository();
    /** Stores the choices for the next time, if the repository owns a port. */
    void saveChoices();
    void copySourceLine();

    /** The user's choices, in the form in which they are stored. The protocol is -1 while none is chosen. */
    PublicationSettings choice() const;
    /** The shown source line; empty while the choices are incomplete. */
    QString sourceLine() const;
    /** Stores the choices under this port and shows them: the repository is published there now. */
    void claim(int protocol, int port);
    void setPort(int port);
    /** Opens the choice of the server type. */
    void askServerType();
    /** Shows the repository's publications, which override the stored choices. `known`: the system has answered. */
    void showPublications(bool known, const QVector<Publication> &publications);
    /** Enables the two commands. `reason` says why the repository cannot be published. */
    void setCommands(bool canPublish, bool canUnpublish, const QString &reason);
    /** Whether this machine's apt has a line to a port where the repository is not published. */
    void setOrphaned(bool orphaned);

Q_SIGNALS:
    void publishTriggered();
    void unpublishTriggered();
    void serverTypeChanged(int index);
    /** The user has chosen another server type. */
    void serverTypeChosen();
    void portEditingFinished();
    /** The choices and the source line may have changed. */
    void choiceChanged();
    void statusLabel(const QString &text);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::unique_ptr<Ui::PublicationPanel> m_ui;
    RepoShell &m_shell;
    QString m_repoPath; ///< of the shown repository; empty: none
    std::optional<PublicationSettings>
        m_published; ///< the stored choices of the repository, as last read or written
    bool m_addressChosen = false; ///< by the user, now or in an earlier session
    int m_type = -1; ///< row of the server type that the user or the settings have chosen last
    bool m_isPublishingKnown = false;
    bool m_isOrphaned = false; ///< a line leads to a port where it is not published
    QString m_obstacle; ///< why the repository cannot be published
    bool m_isUnseen = true; ///< the system has not answered yet
    QVector<Publication> m_live; ///< the repository's publications, as of the last answer

    void setUpFields();
    void connectFields();
    void showArchitectures(const QStringList &architectures);
    void offerAddresses(const QStringList &addresses, const QString &preferred);
    void restore(const PublicationSettings &settings);
    void followMove(const QString &newPath);
    bool isAddressComplete() const;
    bool serves(int protocol) const;
    void showChoice();
    QString builtLine() const;
    QString whatIsMissing() const;
    void followLive(bool isFirst);
    void showPlace(int protocol, int port);
    void showState();
};
