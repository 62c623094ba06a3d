// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/tab/jobfeedback.h"

#include "engine/reposhell.h"
#include "platform/ui/desktopnotification.h"
#include "signing/signingadvice.h"
#include "ui/dialogs/packagereplacementdialog.h"
#include "ui/dialogs/prompts.h"
#include "ui/tab/publicationpanel.h"
#include "ui/tab/repotabs.h"
#include "ui/tab/repowidget.h"
#include "ui/tab/tabtitles.h"
#include "ui/widgets/elidedlabel.h"

#include <QApplication>
#include <QIcon>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QStatusBar>
#include <QTime>
#include <QToolButton>
#include <QWidget>

#include <utility>

namespace
{
/** Jobs that take less time, in milliseconds, end without a message on the desktop. */
constexpr qint64 LongJobTime = 10000;

/** A title that says more than "Error" or "Warning"; empty for most errors. */
QString titleOf(RepoEnums::ErrorCause cause)
{
    switch (cause) {
    case RepoEnums::NOTHING_TO_UPGRADE:
        return RepoShell::tr("Nothing to upgrade");
    case RepoEnums::SOURCES_NOT_WRITTEN:
        return RepoShell::tr("Create source.list file error");
    case RepoEnums::REPOSITORY_BUSY:
    case RepoEnums::OTHER_CAUSE:
        break;
    }
    return {};
}

QString withAdvice(const QString &details)
{
    // Most users do not understand gpg's own words, so the advice comes first.
    const QString remedy = SigningAdvice::of(details);
    return remedy.isEmpty() ? details : remedy + QLatin1String("\n\n") + details;
}
} // namespace

JobFeedback::JobFeedback(
    RepoTabs &tabs, Prompts &prompts, QStatusBar *statusBar, QPlainTextEdit *log, QObject *parent)
    : QObject(parent)
    , m_tabs(tabs)
    , m_prompts(prompts)
    , m_log(log)
    , m_message(new ElidedLabel(statusBar))
    , m_progressBar(new QProgressBar(statusBar))
    , m_stopButton(new QToolButton(statusBar))
{
    m_message->setObjectName(QStringLiteral("m_messageLabel"));
    m_progressBar->setObjectName(QStringLiteral("m_progressBar"));
    m_progressBar->setFormat(QStringLiteral("%v/%m"));
    m_progressBar->setMaximumWidth(statusBar->fontMetrics().averageCharWidth() * 40);
    m_stopButton->setObjectName(QStringLiteral("m_stopButton"));
    m_stopButton->setIcon(QIcon::fromTheme(QStringLiteral("process-stop")));
    m_stopButton->setToolTip(tr("Stop"));
    m_stopButton->setAccessibleName(tr("Stop"));
    m_stopButton->setAutoRaise(true);
    m_stopButton->setFocusPolicy(Qt::TabFocus);
    statusBar->addWidget(m_message, 1);
    statusBar->addPermanentWidget(m_progressBar);
    statusBar->addPermanentWidget(m_stopButton);
    connect(m_stopButton, &QToolButton::clicked, this, &JobFeedback::stop);
    connect(&m_tabs, &RepoTabs::created, this, &JobFeedback::attach);
    connect(&m_tabs, &RepoTabs::currentChanged, this, &JobFeedback::showCurrent);
    connect(&m_tabs, &RepoTabs::leaving, this, [this](RepoWidget *widget) {
        m_quiet.remove(widget);
        // A tab that closes by itself leaves its last message, which says why. A tab that the user closes does not.
        const QString word = m_jobs.take(widget).message;
        const QString lastWord = widget->repoPath().isEmpty() ? word : QString();
        if (m_tabs.current() != widget)
            return;
        // Queued, because the next tab shows its own message first.
        const auto show = [this, lastWord] {
            if (!lastWord.isEmpty() || m_tabs.current() == nullptr)
                m_message->setFullText(lastWord);
        };
        QMetaObject::invokeMethod(this, show, Qt::QueuedConnection);
    });
    showCurrent();
}

void JobFeedback::attach(RepoWidget *widget)
{
    // The tab is the context, so that no signal arrives after the tab was deleted.
    RepoShell *engine = widget->repoShell();
    const auto show = [this, widget](const auto &change) {
        change(m_jobs[widget]);
        showCurrent();
    };
    connect(engine, &RepoShell::started, widget, [this, widget](const QString &message) {
        jobStarted(widget, message);
    });
    connect(engine, &RepoShell::finished, widget, [this, widget](RepoEnums::JobId, const QString &message) {
        jobFinished(widget, message);
    });
    connect(engine, &RepoShell::progressRangeChanged, widget, [show](int maximum) {
        show([maximum](Job &job) { job.maximum = maximum; });
    });
    connect(engine, &RepoShell::progressStepChanged, widget, [show](int step) {
        show([step](Job &job) { job.value = step; });
    });
    connect(widget, &RepoWidget::progressBarSetValue, widget, [show](int value) {
        show([value](Job &job) { job.value = value; });
    });
    connect(engine, &RepoShell::goingOn, widget, [show] { show([](Job &job) { job.stopping = false; }); });
    connect(widget->publicationPanel(), &PublicationPanel::statusLabel, widget, [show](const QString &text) {
        show([text](Job &job) { job.message = text; });
    });
    connect(engine,
            &RepoShell::critical,
            widget,
            [this, widget](const QString &text,
                           const QString &details,
                           RepoEnums::ErrorType type,
                           RepoEnums::ErrorCause cause) {
                // For a report it is a result like others.
                if (cause == RepoEnums::NOTHING_TO_UPGRADE && m_quiet.contains(widget))
                    Q_EMIT told(widget, text);
                else
                    jobError(widget, {text, withAdvice(details), type, titleOf(cause)}, details);
            });
    connect(engine,
            &RepoShell::criticalVelt,
            widget,
            [this, widget](const QString &text, const QString &details) {
                jobError(widget, {text, withAdvice(details), RepoEnums::CRITICAL, {}}, details);
            });
    connect(
        engine, &RepoShell::noted, widget, [this, widget](const QString &text) { appendLog(widget, text); });
    connect(engine, &RepoShell::dependsSummary, widget, [this, widget](const QStringList &lines) {
        for (const QString &line : lines)
            appendLog(widget, line);
    });
    connect(&m_tabs, &RepoTabs::runningChanged, widget, [this, widget](const RepoWidget *changed) {
        if (changed == widget && !m_tabs.isRunning(widget) && m_jobs.contains(widget)) {
            m_jobs[widget].shown = false;
            showCurrent();
        }
    });

    // The job waits inside these two signals until the slot returns. The answer goes to the engine that has asked,
    // although another tab may be current.
    const QPointer<RepoWidget> asking(widget);
    connect(
        engine,
        &RepoShell::question,
        this,
        [this, asking](const QString &title, const QString &text) { askUser(asking, title, text); },
        Qt::BlockingQueuedConnection);
    connect(
        engine,
        &RepoShell::requestForReplacementHandlingByUser,
        this,
        [this, asking](RepoEnums::ErrorCode collision,
                       PackageReplacementRules *rules,
                       const PackageInfoPtr &package,
                       bool singlePackage) {
            packagesReplacementHandler(asking, collision, rules, package, singlePackage);
        },
        Qt::BlockingQueuedConnection);
}

void JobFeedback::jobStarted(RepoWidget *widget, const QString &message)
{
    Job job;
    job.message = message;
    job.shown = true;
    job.errors = m_jobs[widget].errors;
    job.runningTime.start();
    m_jobs[widget] = job;
    appendLog(widget, message);
    showCurrent();
}

void JobFeedback::jobFinished(RepoWidget *widget, const QString &message)
{
    Job &job = m_jobs[widget];
    job.shown = false;
    job.message = message;
    if (!message.isEmpty()) {
        appendLog(widget, message);
        notifyDesktop(widget, job);
    }
    showCurrent();
    const QList<Prompts::Error> errors = std::exchange(job.errors, {});
    if (!errors.isEmpty())
        m_prompts.showErrors(errors);
    if (!message.isEmpty())
        Q_EMIT told(widget, message);
}

void JobFeedback::setQuiet(RepoWidget *widget, bool quiet)
{
    if (quiet)
        m_quiet.insert(widget);
    else
        m_quiet.remove(widget);
}

void JobFeedback::errorOf(RepoWidget *widget,
                          const QString &text,
                          const QString &details,
                          RepoEnums::ErrorType type)
{
    logError(widget, text, details);
    if (!m_quiet.contains(widget))
        m_prompts.showError(text, details, type);
    if (widget != nullptr)
        Q_EMIT troubled(widget, text, details);
}

JobFeedback::Trouble JobFeedback::troubleOf(const HelperClient::Result &result)
{
    return {result.errorText, result.details, HelperClient::advice(result.error)};
}

void JobFeedback::showWaiting(RepoWidget *widget, const QString &message)
{
    if (widget == nullptr) {
        announce(message);
        return;
    }
    Job job;
    job.message = message;
    job.shown = true;
    job.stoppable = false;
    job.runningTime.start();
    m_jobs[widget] = job;
    appendLog(widget, message);
    showCurrent();
}

void JobFeedback::endWaiting(RepoWidget *widget, const QString &message, const Trouble &trouble)
{
    if (!trouble.text.isEmpty()) {
        logError(widget, trouble.text, trouble.details);
        const QString advice = trouble.advice.isEmpty() ? QString() : QLatin1String("\n\n") + trouble.advice;
        const Prompts::Error error{trouble.text, trouble.details + advice, RepoEnums::CRITICAL, {}};
        if (widget == nullptr)
            m_prompts.showErrors({error});
        else if (!m_quiet.contains(widget))
            m_jobs[widget].errors.append(error);
        if (widget != nullptr)
            Q_EMIT troubled(widget, error.text, error.details);
    }
    if (widget != nullptr)
        jobFinished(widget, message);
    else if (!message.isEmpty())
        announce(message);
}

void JobFeedback::jobError(RepoWidget *widget, const Prompts::Error &error, const QString &details)
{
    logError(widget, error.text, details);
    Q_EMIT troubled(widget, error.text, error.details);
    if (m_quiet.contains(widget))
        return;
    Job &job = m_jobs[widget];
    // All errors of a job come in one box at its end. The log has each error at once.
    if (job.shown)
        job.errors.append(error);
    else
        m_prompts.showErrors({error});
}

void JobFeedback::logError(const RepoWidget *widget, const QString &text, const QString &details)
{
    appendLog(widget, details.isEmpty() ? text : text + QLatin1Char(' ') + details);
}

void JobFeedback::notifyDesktop(const RepoWidget *widget, const Job &job) const
{
    const auto *window = m_prompts.window();
    const bool isLooking = QApplication::activeWindow() != nullptr && !window->isMinimized();
    if (!isLooking && !m_prompts.isDismissed() && job.runningTime.hasExpired(LongJobTime))
        DesktopNotification::show(job.message, m_tabs.pathOf(widget));
}

void JobFeedback::showCurrent()
{
    const RepoWidget *widget = m_tabs.current();
    const Job job = m_jobs.value(widget);
    m_progressBar->setVisible(job.shown);
    m_stopButton->setVisible(job.shown && job.stoppable);
    m_stopButton->setEnabled(!job.stopping);
    if (job.shown) {
        m_progressBar->setMaximum(job.maximum);
        m_progressBar->setValue(job.value);
    }
    if (widget != nullptr)
        m_message->setFullText(job.message);
}

void JobFeedback::stop()
{
    RepoWidget *widget = m_tabs.current();
    if (widget != nullptr && m_tabs.isRunning(widget))
        stopJobOf(widget);
}

void JobFeedback::stopJobOf(RepoWidget *widget)
{
    widget->repoShell()->cancel();
    m_jobs[widget].stopping = true;
    showCurrent();
}

void JobFeedback::appendLog(const QString &inMessage)
{
    m_log->appendPlainText(QTime::currentTime().toString(QStringLiteral("[HH:mm:ss] "))
                           + inMessage.simplified());
}

void JobFeedback::appendLog(const RepoWidget *widget, const QString &message)
{
    const QString name = shortlyAbout(widget);
    appendLog(name.isEmpty() ? message : QStringLiteral("%1 (%2)").arg(message, name));
}

void JobFeedback::announce(const QString &message)
{
    if (const RepoWidget *widget = m_tabs.current())
        m_jobs[widget].message = message;
    m_message->setFullText(message);
    appendLog(message);
}

void JobFeedback::error(const QString &text, const QString &details, RepoEnums::ErrorType type)
{
    logError(nullptr, text, details);
    m_prompts.showError(text, withAdvice(details), type);
}

QString JobFeedback::about(const QPointer<RepoWidget> &widget) const
{
    return m_tabs.shown().size() > 1 ? m_tabs.pathOf(widget) : QString();
}

QString JobFeedback::shortlyAbout(const RepoWidget *widget) const
{
    const QList<RepoWidget *> shown = m_tabs.shown();
    if (widget == nullptr || shown.size() < 2)
        return {};
    for (int index = 0; index < shown.size(); ++index) {
        if (shown.at(index) == widget)
            return TabTitles::of(m_tabs.paths()).value(index);
    }
    return m_tabs.pathOf(widget);
}

void JobFeedback::askUser(const QPointer<RepoWidget> &widget, const QString &title, const QString &text)
{
    const QString yes = widget.isNull() ? QString() : widget->repoShell()->questionTraits().yes;
    const Prompts::Answer answer = yes.isEmpty() ? m_prompts.askCarefully(title, text, about(widget))
                                                 : m_prompts.offer(title, text, yes, about(widget));
    // Without an answer the engine keeps its own safe answer.
    RepoWidget *asking = widget.data();
    if (asking != nullptr && answer != Prompts::Answer::Dismissed)
        asking->repoShell()->setAnswer(answer == Prompts::Answer::Yes);
}

void JobFeedback::packagesReplacementHandler(const QPointer<RepoWidget> &widget,
                                             RepoEnums::ErrorCode collision,
                                             PackageReplacementRules *rules,
                                             const PackageInfoPtr &package,
                                             bool singlePackage)
{
    if (package.isNull() || widget.isNull())
        return;
    const CollidingFile newcomer = widget->repoShell()->collidingFile();
    PackageReplacementDialog dialog(
        collision, *package, singlePackage || newcomer.isLast, m_prompts.window());
    dialog.setRepository(about(widget));
    if (m_offersPreview && m_offersPreview(widget))
        dialog.offerPreview();
    dialog.setNewcomer(newcomer.fileName, newcomer.version, newcomer.architectures);
    // The engine waits, so the rules still exist. Without an answer the package stays.
    rules->value = m_prompts.run(dialog) == QDialog::Accepted
                       ? dialog.rule()
                       : static_cast<quint32>(PackageReplacementRules::KeepThis);
    if (dialog.wantsStop() && !widget.isNull())
        stopJobOf(widget);
    if (dialog.wantsPreview() && !widget.isNull())
        Q_EMIT previewWanted(widget);
}
