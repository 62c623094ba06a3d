// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/tab/foreignchanges.h"

#include "core/runinbackground.h"
#include "engine/reposhell.h"
#include "engine/repository/packagelisting.h"
#include "ui/dialogs/prompts.h"
#include "ui/tab/repotabs.h"
#include "ui/tab/repowidget.h"

#include <utility>

ForeignChanges::ForeignChanges(RepoTabs &tabs, Prompts &prompts, RepoWidget &widget)
    : QObject(&widget)
    , m_tabs(tabs)
    , m_prompts(prompts)
    , m_widget(widget)
{
    m_quiet.setSingleShot(true);
    m_quiet.setInterval(QuietTime);
    connect(&m_quiet, &QTimer::timeout, this, &ForeignChanges::look);
    connect(&m_folders, &FolderWatch::changed, this, &ForeignChanges::lookSoon);
    // The repository may have changed between its reading and the beginning of the watch.
    connect(&m_folders, &FolderWatch::watching, this, &ForeignChanges::lookSoon);
    connect(m_widget.repoShell(), &RepoShell::pathChanged, this, &ForeignChanges::watch);
    connect(m_widget.repoShell(), &RepoShell::repoInfoAdded, this, &ForeignChanges::watch);
    connect(&m_tabs, &RepoTabs::ready, this, [this](const RepoWidget *tab) {
        if (tab == &m_widget && std::exchange(m_isDue, false))
            lookSoon();
    });
    connect(&m_prompts, &Prompts::freed, this, [this] {
        if (std::exchange(m_isDue, false))
            lookSoon();
    });
}

void ForeignChanges::watch()
{
    const QString path = m_widget.repoPath();
    const QString codename = m_widget.repoShell()->repoInfo().codename;
    if (path.isEmpty())
        m_folders.watch({});
    else
        m_folders.watch({path + QLatin1String("/db"),
                         path + QLatin1String("/dists"),
                         path + QLatin1String("/dists/") + codename});
}

bool ForeignChanges::mustWait() const
{
    return m_tabs.isRunning(&m_widget) || m_prompts.isOpen();
}

void ForeignChanges::lookSoon()
{
    if (mustWait())
        m_isDue = true;
    else
        m_quiet.start();
}

void ForeignChanges::look()
{
    const RepoShell &shell = *m_widget.repoShell();
    const QString path = shell.path();
    if (path.isEmpty())
        return;
    if (m_isLooking || mustWait()) {
        m_isDue = true;
        return;
    }
    m_isLooking = true;
    const auto compare = [path, info = shell.repoInfo(), known = shell.packages()] {
        const auto listed = readListing(path, info);
        return listed && !compareListings(known, *listed).isEmpty();
    };
    runInBackground(this, compare, [this, path](bool isOther) {
        m_isLooking = false;
        if (m_widget.repoPath() != path)
            return;
        // A job may have begun meanwhile, and then the difference may come from that job.
        if (mustWait())
            m_isDue = true;
        else if (isOther)
            m_widget.repoShell()->reloadRepo();
        else if (std::exchange(m_isDue, false))
            lookSoon();
    });
}
