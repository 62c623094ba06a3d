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
 * The tab "Publication" of a repository: how the repository is to be served, and the line with which clients
 * use it. It keeps the choices of a repository that has a place among the published ones.
 */
class PublicationPanel : public QWidget
{
    Q_OBJECT
public:
    /** `shell` outlives the panel. */
    explicit PublicationPanel(RepoShell &shell, QWidget *parent = nullptr);
    ~PublicationPanel() override;

    /** Shows the engine's repository; call it when it is another one or its description has changed. */
    void showRepository();
    /** Keeps the choices for the next time, if the repository has a place among the published ones. */
    void saveChoices();
    void copySourceLine();

    /** What the user has chosen, as the publication would be kept; the protocol is -1 as long as none is chosen. */
    PublicationSettings choice() const;
    /** The source line that is shown; empty while something is missing for it. */
    QString sourceLine() const;
    /** Keeps the choices under this port, and shows it: the repository is published so. */
    void claim(int protocol, int port);
    void setPort(int port);
    /** Opens the choice of the server type. */
    void askServerType();
    /** Shows what the system says of the repository, which overrides what is kept. `known`: the system was asked. */
    void showPublications(bool known, const QVector<Publication> &publications);
    /** Which of the two commands can be given; `reason` says why the repository cannot be published. */
    void setCommands(bool canPublish, bool canUnpublish, const QString &reason);
    /** Whether a line for this machine's apt leads to where the repository is not published. */
    void setOrphaned(bool orphaned);

Q_SIGNALS:
    void publishTriggered();
    void unpublishTriggered();
    void serverTypeChanged(int index);
    /** By the user's hand. */
    void serverTypeChosen();
    void portEditingFinished();
    /** The choices may be other ones, and with them the source line. */
    void choiceChanged();
    void statusLabel(const QString &text);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::unique_ptr<Ui::PublicationPanel> m_ui;
    RepoShell &m_shell;
    QString m_repoPath; ///< of the repository that is shown; empty: none
    std::optional<PublicationSettings>
        m_published; ///< the repository's place, as it was when last read or kept
    bool m_addressChosen = false; ///< by the user, or once by them and kept
    int m_type = -1; ///< row of the server type that the user or the settings chose last
    bool m_isPublishingKnown = false;
    bool m_isOrphaned = false; ///< a line leads to where it is not published
    QString m_obstacle; ///< why the repository cannot be published
    bool m_isUnseen = true; ///< nothing is known yet of where the repository is published
    QVector<Publication> m_live; ///< the repository's, as the system has last said

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
