// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/commands/dependsreportcommands.h"

#include "core/runinbackground.h"
#include "engine/reposhell.h"
#include "files/wholefile.h"
#include "installability/installabilityreport.h"
#include "ui/commands/settingscommands.h"
#include "ui/depends/dependsmodes.h"
#include "ui/dialogs/prompts.h"
#include "ui/tab/jobfeedback.h"
#include "ui/tab/repotabs.h"
#include "ui/tab/repowidget.h"

#include <QAction>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QJsonDocument>

DependsReportCommands::DependsReportCommands(const Workbench &bench, QObject *parent)
    : QObject(parent)
    , m_bench(bench)
    , m_copyAction(new QAction(QIcon::fromTheme(QStringLiteral("edit-copy")), tr("Copy report"), this))
    , m_saveAction(new QAction(QIcon::fromTheme(QStringLiteral("document-save")), tr("Save report..."), this))
    , m_lastFolder(QDir::homePath())
{
    m_copyAction->setObjectName(QStringLiteral("m_copyReportAction"));
    m_saveAction->setObjectName(QStringLiteral("m_saveReportAction"));
    connect(m_copyAction, &QAction::triggered, this, &DependsReportCommands::copy);
    connect(m_saveAction, &QAction::triggered, this, &DependsReportCommands::save);
    connect(&m_bench.tabs, &RepoTabs::created, this, &DependsReportCommands::attach);
    connect(&m_bench.tabs, &RepoTabs::leaving, this, [this](const RepoWidget *widget) {
        m_jobs.remove(widget);
        m_checks.remove(widget);
    });
    updateActions();
}

void DependsReportCommands::attach(RepoWidget *widget)
{
    connect(widget, &RepoWidget::packagesChanged, this, &DependsReportCommands::stateChanged);
    const RepoShell *engine = widget->repoShell();
    connect(engine, &RepoShell::started, this, [this, widget] {
        m_jobs[widget] = {m_bench.settings.choices().dependsRepoType, widget->hasCheckResults(), false, 0};
    });
    connect(engine, &RepoShell::progressRangeChanged, this, [this, widget](int maximum) {
        m_jobs[widget].items = maximum;
    });
    connect(engine, &RepoShell::dependsSummary, this, [this, widget] { m_jobs[widget].hasChecked = true; });
    connect(engine, &RepoShell::finished, this, [this, widget](RepoEnums::JobId jobId) {
        endJob(widget, jobId);
    });
}

void DependsReportCommands::endJob(const RepoWidget *widget, RepoEnums::JobId jobId)
{
    const Job job = m_jobs.take(widget);
    if (!job.hasChecked)
        return;
    const RepoShell &engine = *widget->repoShell();
    const bool isCheck = jobId == RepoEnums::CHECK_DEPENDS_JOB;
    std::optional<int> mode = job.mode;
    // Other jobs check at their end. The user may have chosen another mode since they began.
    if (!isCheck && job.mode != m_bench.settings.choices().dependsRepoType)
        mode.reset();
    const bool isOfAll
        = isCheck && job.items == engine.packageCount() && engine.progress() == engine.packageCount();
    const Check before = m_checks.value(widget);
    const bool standsAlone = isOfAll || !job.addsToMarks;
    if (!standsAlone && before.mode != mode)
        mode.reset();
    // Stored marks have no date. A date in the report would be wrong for them.
    const bool isDated = standsAlone || before.time.isValid();
    m_checks[widget] = {mode, isDated ? QDateTime::currentDateTime() : QDateTime()};
}

void DependsReportCommands::updateActions()
{
    const RepoWidget *widget = m_bench.tabs.current();
    const bool isThereAny = widget != nullptr
                            && (widget->packagesInError() > 0
                                || InstallabilityReport::hasResults(widget->repoShell()->packages()));
    m_copyAction->setEnabled(isThereAny);
    m_saveAction->setEnabled(isThereAny);
}

QByteArray DependsReportCommands::report(const Contents &contents, Format format)
{
    const bool hasCompleteCheck = InstallabilityReport::hasResults(contents.packages);
    if (format == Format::Json) {
        QJsonObject json = DependsReport::json(contents.packages, contents.heading);
        if (hasCompleteCheck)
            json.insert(QStringLiteral("completeCheck"),
                        InstallabilityReport::json(contents.packages, contents.completeCheck));
        return QJsonDocument(json).toJson();
    }
    QString text = DependsReport::text(contents.packages, contents.heading);
    if (hasCompleteCheck)
        text += QLatin1Char('\n') + InstallabilityReport::text(contents.packages, contents.completeCheck);
    return text.toUtf8();
}

DependsReportCommands::Contents DependsReportCommands::contentsOf(const RepoWidget &widget) const
{
    const Check check = m_checks.value(&widget);
    return {widget.repoShell()->packages(),
            {widget.repoPath(), check.mode ? DependsModes::about(*check.mode) : QString(), check.time},
            {}};
}

void DependsReportCommands::copy()
{
    const RepoWidget *widget = m_bench.tabs.current();
    if (widget == nullptr)
        return;
    const auto work = [contents = contentsOf(*widget)] { return report(contents, Format::Text); };
    runInBackground(this, work, [this](const QByteArray &text) {
        QGuiApplication::clipboard()->setText(QString::fromUtf8(text));
        m_bench.feedback.announce(tr("Report is copied to clipboard"));
    });
}

void DependsReportCommands::save()
{
    const RepoWidget *widget = m_bench.tabs.current();
    if (widget == nullptr)
        return;
    // The report shows the state of this moment, although jobs may run while the dialog is open.
    const Contents contents = contentsOf(*widget);
    const QString name = QStringLiteral("%1_dependences.txt").arg(widget->repoShell()->repoInfo().name);
    const QString textFilter = tr("Text (*.txt)");
    const QString jsonFilter = tr("JSON (*.json)");
    const Prompts::FileChoice choice
        = m_bench.prompts.saveFile(tr("Save report"), m_lastFolder, name, {textFilter, jsonFilter});
    if (choice.path.isEmpty())
        return;
    const QString path = choice.path;
    const Format format = choice.filter == jsonFilter ? Format::Json : Format::Text;
    const auto work = [contents, format, path] { return WholeFile::replace(path, report(contents, format)); };
    runInBackground(this, work, [this, path](const QString &failure) {
        if (!failure.isEmpty()) {
            m_bench.feedback.error(tr("The report cannot be saved in %1.").arg(path), failure);
            return;
        }
        // The next report is proposed for the same folder.
        m_lastFolder = QFileInfo(path).absolutePath();
        m_bench.feedback.announce(tr("The report is saved in %1.").arg(path));
    });
}
