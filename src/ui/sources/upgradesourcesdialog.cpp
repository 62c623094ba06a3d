// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sources/upgradesourcesdialog.h"

#include "ui/sources/aptsourcesquery.h"
#include "ui/widgets/checktablemodel.h"

#include <utility>

UpgradeSourcesDialog::UpgradeSourcesDialog(ExternalRepos repos, const QStringList &chosen, QWidget *parent)
    : CheckTableDialog(
        tr("Select sources to upgrade"),
        tr("Newer versions of the packages are looked for in these sources. Which ones are offered here "
           "is set in Settings, Edit external repos."),
        {tr("Repository"), tr("Alias")},
        parent)
    , m_repos(std::move(repos))
    , m_wanted(chosen)
{
    setState(tr("Asking apt which repositories it knows..."));
    showSources(chosen);
    auto *query = new AptSourcesQuery(this);
    connect(query, &AptSourcesQuery::answered, this, &UpgradeSourcesDialog::takeAnswer);
    query->start();
}

QStringList UpgradeSourcesDialog::sources() const
{
    QStringList chosen;
    for (int row = 0; row < m_shown.size(); ++row) {
        if (model()->isChecked(row))
            chosen << m_shown.at(row);
    }
    return chosen;
}

void UpgradeSourcesDialog::takeAnswer(const QStringList &known, const QString &failure)
{
    // Keeps the user's choices so far. Sources of the last choice may only appear now.
    QStringList chosen = sources();
    for (const QString &source : std::as_const(m_wanted)) {
        if (!m_shown.contains(source))
            chosen << source;
    }
    if (failure.isEmpty())
        m_repos.merge(known);
    setState(
        failure.isEmpty()
            ? QString()
            : tr("apt does not say which repositories it knows; only your own are shown. %1").arg(failure));
    showSources(chosen);
}

void UpgradeSourcesDialog::showSources(const QStringList &chosen)
{
    m_shown.clear();
    QVector<CheckTableModel::Row> rows;
    const QVector<ExternalRepos::Entry> &entries = m_repos.entries();
    for (const ExternalRepos::Entry &entry : entries) {
        if (!entry.isAsked())
            continue;
        m_shown << entry.source;
        rows.append({{entry.source, entry.alias}, chosen.contains(entry.source)});
    }
    model()->setRows(rows);
    fitColumns();
}
