// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "publication/helperclient.h"
#include "publication/localsourcechoice.h"
#include "publication/localsourceswatch.h"
#include "ui/commands/workbench.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <optional>

class PublicationMonitor;
class RepoWidget;

/**
 * The commands on this machine's own list of sources. Which line apt gets is looked into in the background: it leads
 * to the directory or names the repository's key where it can, since a line outlives the publication that it leads to.
 */
class LocalSourceCommand : public QObject
{
    Q_OBJECT
public:
    using Answer = std::function<void(bool done)>;

    LocalSourceCommand(const Workbench &bench,
                       PublicationMonitor &monitor,
                       HelperClient &helper,
                       QObject *parent);

    /** The lines of the list by which apt uses the tab's repository. Touches no file. */
    QStringList linesOf(const RepoWidget &widget) const;
    /** Those that lead to a port of this machine on which nothing is published; empty as long as that is unknown. */
    QStringList orphanedLines() const;

    /** Adds the tab's repository to the list, after a question where that is a risk. */
    void add(RepoWidget *widget);
    /** Removes the lines of the tab's repository. */
    void remove(RepoWidget *widget);
    /**
     * Removes these lines, while `tab` waits, which is null for lines of no repository that is open. `answer` does
     * not come when the window is closed before.
     */
    void removeLines(const QStringList &lines, RepoWidget *tab, const Answer &answer = {});
    /** The lines that lead to this publication and that the user wants to go with it. Nothing when nobody was asked. */
    std::optional<QStringList> askForLinesTo(const Publication &publication);

Q_SIGNALS:
    /** The list is another one. */
    void changed();

private:
    /** What was looked into in the background. */
    struct Finding
    {
        LocalSourceFacts facts;
        QByteArray key; ///< in ASCII armor
    };

    /** Lines that are being removed one after another. */
    struct Removal
    {
        QStringList ours; ///< still to be removed
        QStringList byHand; ///< what the helper does not touch
        QPointer<RepoWidget> tab;
        Answer answer;
    };

    static Finding look(LocalSourceFacts facts, const QString &codename);
    void choose(RepoWidget *widget, const Finding &finding);
    bool agrees(const LocalSourceChoice &choice, const LocalSourceFacts &facts);
    void removeNext(Removal removal);
    void endRemoval(const Removal &removal, const HelperClient::Result &result);
    void tellWhatStays(const Removal &removal);

    Workbench m_bench;
    PublicationMonitor &m_monitor;
    HelperClient &m_helper;
    LocalSourcesWatch m_list;
};
