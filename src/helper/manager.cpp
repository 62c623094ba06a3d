// SPDX-License-Identifier: GPL-3.0-or-later
#include "helper/manager.h"

#include "helper/journal.h"
#include "helper/requestrules.h"

#include <QDBusError>
#include <QDBusPendingCallWatcher>

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace
{
const QString objectPath = QStringLiteral("/");
const QString tooMany = QStringLiteral("Too many requests are open.");
/** A user needs one request at a time; more than a few are an attempt to keep the helper from others. */
constexpr int MostOfOneUser = 8;
/** Counts those whose user the bus has yet to tell, which takes it a moment. */
constexpr std::size_t MostOfAll = 256;

QDBusError::ErrorType errorOf(HelperOutcome::Kind kind)
{
    return kind == HelperOutcome::Invalid ? QDBusError::InvalidArgs : QDBusError::AccessDenied;
}
} // namespace

Manager::Manager(QDBusConnection bus, Work work, std::chrono::milliseconds idleTime)
    : m_bus(std::move(bus))
    , m_work(std::move(work))
    , m_authority(m_bus)
{
    m_worker.setMaxThreadCount(1);
    m_callers.setConnection(m_bus);
    m_callers.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
    connect(&m_callers, &QDBusServiceWatcher::serviceUnregistered, this, &Manager::forget);
    m_idle.setSingleShot(true);
    m_idle.setInterval(idleTime);
    connect(&m_idle, &QTimer::timeout, this, &Manager::leave);
}

Manager::~Manager()
{
    m_worker.waitForDone();
}

bool Manager::start()
{
    // The object comes first: with the name, the calls come that have been waiting for it.
    if (!m_bus.registerObject(objectPath,
                              this,
                              QDBusConnection::ExportScriptableSlots
                                  | QDBusConnection::ExportScriptableSignals)
        || !m_bus.registerService(Service))
        return false;
    m_idle.start();
    return true;
}

void Manager::stop()
{
    // While leaving this is the service manager's answer to the name that is gone: nothing new.
    if (m_leaving)
        return;
    std::vector<Number> waiting;
    for (const auto &[number, open] : m_open) {
        if (!open.working)
            waiting.push_back(number);
    }
    for (const Number number : waiting) {
        m_bus.send(m_open.at(number).call.createErrorReply(QDBusError::NoReply,
                                                           QStringLiteral("The helper is being stopped.")));
        close(number);
    }
    leave();
}

bool Manager::AddLocalSource(const QString &entry)
{
    return take({HelperRequest::AddLocalSource, entry, {}, 0, 0});
}

bool Manager::RemoveLocalSource(const QString &entry)
{
    return take({HelperRequest::RemoveLocalSource, entry, {}, 0, 0});
}

bool Manager::PublishRepo(const QString &path, int port, int protocol)
{
    return take({HelperRequest::PublishRepo, {}, path, port, protocol});
}

bool Manager::UnpublishRepo(int port, int protocol)
{
    return take({HelperRequest::UnpublishRepo, {}, {}, port, protocol});
}

bool Manager::hasOpen(const QString &caller) const
{
    return std::any_of(m_open.cbegin(), m_open.cend(), [&caller](const auto &open) {
        return open.second.call.service() == caller;
    });
}

bool Manager::isBusy(uint user) const
{
    return std::count_if(
               m_open.cbegin(), m_open.cend(), [user](const auto &open) { return open.second.user == user; })
           > MostOfOneUser;
}

bool Manager::take(const HelperRequest &request)
{
    if (!calledFromDBus())
        return false;
    if (m_open.size() >= MostOfAll) {
        sendErrorReply(QDBusError::LimitsExceeded, tooMany);
        return false;
    }
    setDelayedReply(true);
    m_idle.stop();
    const QString caller = message().service();
    const Number number = ++m_count;
    m_open[number] = {request, message(), {}, {}, false};
    // Watched before the bus is asked who it is: whoever has left by then is not known to the bus any more.
    m_callers.addWatchedService(caller);
    QDBusMessage call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                                                       QStringLiteral("/org/freedesktop/DBus"),
                                                       QStringLiteral("org.freedesktop.DBus"),
                                                       QStringLiteral("GetConnectionUnixUser"));
    call.setArguments({caller});
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, number, watcher] {
        watcher->deleteLater();
        identified(number, watcher->reply());
    });
    return false;
}

void Manager::identified(Number number, const QDBusMessage &reply)
{
    const auto found = m_open.find(number);
    if (found == m_open.end())
        return;
    Open &open = found->second;
    const bool known = reply.type() == QDBusMessage::ReplyMessage && reply.signature() == QLatin1String("u");
    Journal::write(Journal::Info,
                   QStringLiteral("request %1 of %2, user %3: %4")
                       .arg(QString::number(number),
                            open.call.service(),
                            known ? reply.arguments().constFirst().toString() : QStringLiteral("unknown"),
                            open.request.describe()));
    if (!known) {
        answer(number, {HelperOutcome::Refused, QStringLiteral("The bus does not tell who the caller is.")});
        return;
    }
    open.user = reply.arguments().constFirst().toUInt();
    if (isBusy(*open.user)) {
        m_bus.send(open.call.createErrorReply(QDBusError::LimitsExceeded, tooMany));
        close(number);
        return;
    }
    const QString problem = RequestRules::problem(open.request);
    if (!problem.isEmpty()) {
        answer(number, {HelperOutcome::Invalid, problem});
        return;
    }
    ask(number);
}

void Manager::ask(Number number)
{
    Open &open = m_open.at(number);
    open.question = m_authority.check(open.call.service(),
                                      open.request.action(),
                                      open.request.arguments(),
                                      [this, number](bool authorised, const QString &reason) {
                                          m_open.at(number).question.clear();
                                          if (!authorised) {
                                              answer(number, {HelperOutcome::Refused, reason});
                                              return;
                                          }
                                          m_queue.push_back(number);
                                          workOn();
                                      });
}

void Manager::workOn()
{
    if (m_queue.empty()
        || std::any_of(m_open.cbegin(), m_open.cend(), [](const auto &open) { return open.second.working; }))
        return;
    const Number number = m_queue.front();
    m_queue.pop_front();
    Open &open = m_open.at(number);
    open.working = true;
    m_worker.start([this, number, work = m_work, request = open.request] {
        const HelperOutcome outcome = work(request);
        QMetaObject::invokeMethod(
            this,
            [this, number, outcome] {
                answer(number, outcome);
                workOn();
            },
            Qt::QueuedConnection);
    });
}

void Manager::answer(Number number, const HelperOutcome &outcome)
{
    const QDBusMessage call = m_open.at(number).call;
    if (outcome.kind == HelperOutcome::Done) {
        Journal::write(Journal::Notice, QStringLiteral("request %1: done").arg(number));
    } else {
        Journal::write(Journal::Warning,
                       QStringLiteral("request %1: %2").arg(QString::number(number), outcome.reason));
        // Not emitted: that would tell every program on the bus what this one has asked for.
        QDBusMessage error
            = QDBusMessage::createTargetedSignal(call.service(),
                                                 objectPath,
                                                 QStringLiteral("org.corvana.velt.repo.Manager"),
                                                 QStringLiteral("Error"));
        error.setArguments({int(outcome.kind), outcome.reason});
        m_bus.send(error);
    }
    if (outcome.kind == HelperOutcome::Done || outcome.kind == HelperOutcome::Failed)
        m_bus.send(call.createReply(outcome.kind == HelperOutcome::Done));
    else
        m_bus.send(call.createErrorReply(errorOf(outcome.kind), outcome.reason));
    close(number);
}

void Manager::close(Number number)
{
    const auto found = m_open.find(number);
    const QString caller = found->second.call.service();
    if (!found->second.question.isEmpty())
        m_authority.cancel(found->second.question);
    m_queue.erase(std::remove(m_queue.begin(), m_queue.end(), number), m_queue.end());
    m_open.erase(found);
    if (!hasOpen(caller))
        m_callers.removeWatchedService(caller);
    settle();
}

void Manager::forget(const QString &caller)
{
    std::vector<Number> gone;
    for (const auto &[number, open] : m_open) {
        // What has begun is brought to its end: half of it would be worse than all of it.
        if (open.call.service() == caller && !open.working)
            gone.push_back(number);
    }
    for (const Number number : gone) {
        Journal::write(Journal::Info, QStringLiteral("request %1: the caller has left").arg(number));
        close(number);
    }
}

void Manager::leave()
{
    m_leaving = true;
    m_idle.stop();
    m_bus.unregisterService(Service);
    // Calls that came before the name was gone are events of this object by now; this one is behind them.
    QMetaObject::invokeMethod(this, &Manager::settle, Qt::QueuedConnection);
}

void Manager::settle()
{
    if (!m_open.empty())
        return;
    if (m_leaving)
        Q_EMIT finished();
    else
        m_idle.start();
}
