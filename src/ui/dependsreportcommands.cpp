// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dependsreportcommands.h"

#include "core/wholefile.h"
#include "depends/dependsreport.h"
#include "engine/reposhell.h"
#include "ui/jobfeedback.h"
#include "ui/prompts.h"
#include "ui/repotabs.h"
#include "ui/repowidget.h"

#include <QAction>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QFutureWatcher>
#include <QGuiApplication>
#include <QtConcurrent>

DependsReportCommands::DependsReportCommands(RepoTabs &tabs,
                                             Prompts &prompts,
                                             JobFeedback &feedback,
                                             QObject *parent)
    : QObject(parent)
    , m_tabs(tabs)
    , m_prompts(prompts)
    , m_feedback(feedback)
    , m_copyAction(new QAction(QIcon::fromTheme(QStringLiteral("edit-copy")), tr("Copy report"), this))
    , m_saveAction(new QAction(QIcon::fromTheme(QStringLiteral("document-save")), tr("Save report..."), this))
    , m_lastFolder(QDir::homePath())
{
    m_copyAction->setObjectName(QStringLiteral("m_copyReportAction"));
    m_saveAction->setObjectName(QStringLiteral("m_saveReportAction"));
    connect(m_copyAction, &QAction::triggered, this, &DependsReportCommands::copy);
    connect(m_saveAction, &QAction::triggered, this, &DependsReportCommands::save);
    connect(&m_tabs, &RepoTabs::created, this, [this](RepoWidget *widget) {
        connect(widget, &RepoWidget::packagesChanged, this, &DependsReportCommands::stateChanged);
    });
    updateActions();
}

void DependsReportCommands::updateActions()
{
    const RepoWidget *widget = m_tabs.current();
    const bool isThereAny = widget != nullptr && widget->packagesInError() > 0;
    m_copyAction->setEnabled(isThereAny);
    m_saveAction->setEnabled(isThereAny);
}

QByteArray DependsReportCommands::report(const QList<PackageInfoPtr> &packages, Format format)
{
    return format == Format::Json ? DependsReport::json(packages) : DependsReport::text(packages).toUtf8();
}

QString
DependsReportCommands::write(const QList<PackageInfoPtr> &packages, Format format, const QString &path)
{
    return WholeFile::replace(path, report(packages, format));
}

void DependsReportCommands::copy()
{
    const RepoWidget *widget = m_tabs.current();
    if (widget == nullptr)
        return;
    auto *watcher = new QFutureWatcher<QByteArray>(this);
    connect(watcher, &QFutureWatcher<QByteArray>::finished, this, [this, watcher] {
        QGuiApplication::clipboard()->setText(QString::fromUtf8(watcher->result()));
        m_feedback.announce(tr("Report is copied to clipboard"));
        watcher->deleteLater();
    });
    watcher->setFuture(QtConcurrent::run(
        [packages = widget->repoShell()->packages()] { return report(packages, Format::Text); }));
}

void DependsReportCommands::save()
{
    const RepoWidget *widget = m_tabs.current();
    if (widget == nullptr)
        return;
    // What was in error when the command was given, whatever happens while the dialog is open.
    const QList<PackageInfoPtr> packages = widget->repoShell()->packages();
    const QString name = QStringLiteral("%1_dependences.txt").arg(widget->repoShell()->repoInfo().name);
    const QString textFilter = tr("Text (*.txt)");
    const QString jsonFilter = tr("JSON (*.json)");
    const Prompts::FileChoice choice
        = m_prompts.saveFile(tr("Save report"), m_lastFolder, name, {textFilter, jsonFilter});
    if (choice.path.isEmpty())
        return;
    const QString path = choice.path;
    auto *watcher = new QFutureWatcher<QString>(this);
    connect(watcher, &QFutureWatcher<QString>::finished, this, [this, watcher, path] {
        const QString failure = watcher->result();
        watcher->deleteLater();
        if (!failure.isEmpty()) {
            m_feedback.error(tr("The report cannot be saved in %1.").arg(path), failure);
            return;
        }
        // A folder that took it takes the next one.
        m_lastFolder = QFileInfo(path).absolutePath();
        m_feedback.announce(tr("The report is saved in %1.").arg(path));
    });
    const Format format = choice.filter == jsonFilter ? Format::Json : Format::Text;
    watcher->setFuture(QtConcurrent::run([packages, format, path] { return write(packages, format, path); }));
}
