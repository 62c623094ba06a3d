// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "publication/helperclient.h"
#include "publication/publicationmonitor.h"
#include "server/publicationaccess.h"
#include "server/publicationrules.h"
#include "ui/commands/workbench.h"
#include "ui/tab/jobfeedback.h"

#include <QDateTime>
#include <QHash>
#include <QObject>
#include <QPointer>

#include <functional>

class RepoWidget;

/**
 * Publishes and unpublishes repositories. Before the system is asked for anything, everything is looked at that can
 * stand in the way, each thing in the background; while a tab waits for the system, its other commands are switched
 * off.
 */
class PublishCommand : public QObject
{
    Q_OBJECT
public:
    using Answer = std::function<void(bool done)>;

    PublishCommand(const Workbench &bench,
                   PublicationMonitor &monitor,
                   HelperClient &helper,
                   QObject *parent);

    /** What the tab's panel says, for the rules. Touches no file: it is asked for at every key. */
    PublicationRequest requestOf(const RepoWidget &widget) const;
    /** Reads again which ports are kept, and for which repositories. */
    void renewKeptPorts();
    /** Publishes the tab's repository as its panel says. */
    void publish(RepoWidget *widget);
    /** Ends this publication. `tab` is that of its repository, null when it has none. */
    void unpublish(const Publication &publication, RepoWidget *tab, const Answer &answer = {});

Q_SIGNALS:
    void published(RepoWidget *widget);

private:
    /** What is to be published, as it was when the command was given. */
    struct Request
    {
        QPointer<RepoWidget> widget;
        PublicationRequest wanted;
        PublicationRules rules; ///< as of the last look at the system
        QDateTime asked = {}; ///< when the system was asked to publish
    };

    // The steps of publishing, in this order. Each goes on with the next or gives up.
    void checkPackage(const Request &request);
    void checkPort(Request request);
    void checkAccess(const Request &request);
    void judgeAccess(const Request &request, const PublicationAccess &access);
    void openUp(const Request &request);
    void confirm(const Request &request);
    void makeRoom(const Request &request);
    void askSystem(Request request);
    void finish(const Request &request, const HelperClient::Result &result);
    void explainFailure(const Request &request);

    bool agreesToReplace(const Request &request);
    bool goesOn(const Request &request) const;
    void giveUp(const Request &request);
    void refuse(const Request &request, const QString &reason);
    /** Ends the waiting of the tab, which may be null, with a last word and an error. */
    void endWaiting(RepoWidget *tab, const QString &message, const JobFeedback::Trouble &trouble);
    void afterReading(const std::function<void()> &next);
    void endUnpublishing(const Publication &publication,
                         RepoWidget *tab,
                         const HelperClient::Result &result,
                         const Answer &answer);
    /** Whether the system still has it; as of the last reading. */
    bool isListed(const Publication &publication) const;
    static QString whyListed(const Publication &publication);
    static QString whereReasonsAre();
    static QString wordOfFailure();

    Workbench m_bench;
    PublicationMonitor &m_monitor;
    HelperClient &m_helper;
    QHash<int, QString>
        m_keptPorts; ///< with the directories of their repositories, as the settings have them
};
