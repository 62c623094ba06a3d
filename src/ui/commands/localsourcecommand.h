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
 * The commands on this machine's own list of sources. The line for apt is chosen on another thread. It names the
 * directory or the repository's key where possible, because a line outlives its publication.
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

    /** The lines of the list by which apt uses the tab's repository. Reads no file. */
    QStringList linesOf(const RepoWidget &widget) const;
    /** The lines that lead to a port of this machine on which nothing is published; empty while this is unknown. */
    QStringList orphanedLines() const;

    /** Adds the tab's repository to the list. Asks first when the line is a risk. */
    void add(RepoWidget *widget);
    /** Removes the lines of the tab's repository. */
    void remove(RepoWidget *widget);
    /**
     * Removes these lines while `tab` waits; `tab` is null when the repository is not open. There is no `answer` when
     * the window closes before the end.
     */
    void removeLines(const QStringList &lines, RepoWidget *tab, const Answer &answer = {});
    /** The lines to this publication that the user wants to remove with it. Nothing when the user gave no answer. */
    std::optional<QStringList> askForLinesTo(const Publication &publication);

Q_SIGNALS:
    /** The list has changed. */
    void changed();

private:
    /** What was found on the other thread. */
    struct Finding
    {
        LocalSourceFacts facts;
        QByteArray key; ///< in ASCII armor
    };

    /** Lines that are removed one after another. */
    struct Removal
    {
        QStringList ours; ///< still to be removed
        QStringList byHand; ///< lines that the helper does not remove
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
