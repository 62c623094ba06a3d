// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/installability/removalquestion.h"

#include "core/countof.h"
#include "installability/installabilitytext.h"
#include "ui/installability/removalimpactsearch.h"
#include "ui/widgets/mnemonics.h"

#include <QLabel>
#include <QTextEdit>

namespace
{
constexpr int NamesInLine = 5;

QStringList namesOf(const QList<PackageInfoPtr> &packages, bool withDetails)
{
    QStringList names;
    for (const PackageInfoPtr &package : packages)
        names << InstallabilityText::name(
            {package->name, package->version, package->architecture, true}, withDetails, withDetails);
    return names;
}

/** The first names; with architectures where a name alone could mean several packages. */
QString firstNames(const QList<PackageInfoPtr> &packages)
{
    QStringList names = namesOf(packages, false);
    if (names.removeDuplicates() > 0)
        names = namesOf(packages, true);
    return InstallabilityText::listed(names);
}
} // namespace

RemovalQuestion::RemovalQuestion(const QString &title,
                                 const QString &text,
                                 const QString &about,
                                 const RemovalImpactSearch &search,
                                 const QString &repository,
                                 QWidget *parent)
    : QMessageBox(Question, title, text, Yes | No, parent)
    , m_search(search)
    , m_about(about)
    , m_repository(repository)
    , m_preview(addButton(tr("Preview..."), ActionRole))
{
    setTextFormat(Qt::PlainText);
    m_preview->setObjectName(QStringLiteral("m_previewButton"));
    setDefaultButton(No);
    setEscapeButton(No);
    Mnemonics::markForm(this);
    m_wasSearching = !m_search.isFinished();
    showImpact();
    connect(&m_search, &RemovalImpactSearch::finished, this, &RemovalQuestion::showImpact);
}

void RemovalQuestion::withoutPreview()
{
    removeButton(m_preview);
    m_preview->deleteLater();
    m_preview = nullptr;
}

void RemovalQuestion::showImpact()
{
    QStringList lines;
    QStringList details;
    if (!m_search.isFinished()) {
        lines << tr("Looking for packages that could no longer be installed...");
    } else if (!m_search.impact()) {
        lines << tr("Whether other packages need them could not be found out in time.");
    } else {
        for (const RepositoryImpact &impact : *m_search.impact()) {
            if (impact.lost.isEmpty())
                continue;
            const int count = countOf(impact.lost);
            const QString list = firstNames(impact.lost);
            lines << (impact.path == m_repository
                          ? tr("%n package(s) could no longer be installed without this: %1", nullptr, count)
                                .arg(list)
                          : tr("%n package(s) of the repository %1 could no longer be installed without "
                               "this: %2",
                               nullptr,
                               count)
                                .arg(InstallabilityText::shown(impact.path), list));
            if (count > NamesInLine)
                details << impact.path << namesOf(impact.lost, true) << QString();
        }
        // What was announced needs an answer; otherwise the question stays as short as it was.
        if (lines.isEmpty() && m_wasSearching)
            lines << tr("All other packages stay as they are.");
    }
    lines.prepend(m_about);
    setInformativeText(lines.join(QLatin1String("\n\n")));
    // The text format of the box does not apply to the informative text.
    if (auto *label = findChild<QLabel *>(QStringLiteral("qt_msgbox_informativelabel")))
        label->setTextFormat(Qt::PlainText);
    if (details.isEmpty())
        return;
    setDetailedText(details.join(QLatin1Char('\n')).trimmed());
    // The button that shows the details must not become the one that Enter presses.
    setDefaultButton(No);
    setEscapeButton(No);
    if (auto *view = findChild<QTextEdit *>())
        view->setTabChangesFocus(true);
}
