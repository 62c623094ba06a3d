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
 * Publishes and unpublishes repositories. It checks every possible obstacle, on another thread, before it asks the
 * system. While a tab waits for the system, its other commands are disabled.
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

    /** The choice in the tab's panel, for the rules. It is asked for at every key press, so it reads no file. */
    PublicationRequest requestOf(const RepoWidget &widget) const;
    /** Reads the kept ports and their repositories again. */
    void renewKeptPorts();
    /** Publishes the tab's repository as chosen in its panel. */
    void publish(RepoWidget *widget);
    /** Ends this publication. `tab` shows its repository; null when no tab does. */
    void unpublish(const Publication &publication, RepoWidget *tab, const Answer &answer = {});

Q_SIGNALS:
    void published(RepoWidget *widget);

private:
    /** What to publish, as it was at the time of the command. */
    struct Request
    {
        QPointer<RepoWidget> widget;
        PublicationRequest wanted;
        PublicationRules rules; ///< as of the last reading of the system
        QDateTime asked = {}; ///< when the system was asked to publish
    };

    // The steps of publishing, in this order. Each step calls the next one or gives up.
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
    /** Whether the system still has the publication, as of the last reading. */
    bool isListed(const Publication &publication) const;
    static QString wordOfFailure();

    Workbench m_bench;
    PublicationMonitor &m_monitor;
    HelperClient &m_helper;
    QHash<int, QString> m_keptPorts; ///< and the directories of their repositories, as the settings have them
};
