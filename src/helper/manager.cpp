// SPDX-License-Identifier: GPL-3.0-or-later
#include "helper/manager.h"

#include "helper/journal.h"
#include "helper/requestmessage.h"
#include "helper/requestrules.h"

#include <algorithm>
#include <array>
#include <utility>

namespace
{
using namespace std::chrono_literals;

constexpr const char *Object = "/";
constexpr const char *Interface = "org.corvana.velt.repo.Manager";
/** Everybody may call the methods; polkit decides about each request. */
constexpr uint64_t Everybody = SD_BUS_VTABLE_UNPRIVILEGED;
constexpr const char *TooMany = "Too many requests are open.";

constexpr const char *Bus = "org.freedesktop.DBus";
constexpr const char *BusObject = "/org/freedesktop/DBus";
constexpr uint32_t DoNotQueue = 4;
constexpr uint32_t PrimaryOwner = 1;

/** A request that is refused before polkit is asked costs its sender nothing, so it must not fill the journal. */
constexpr int MostRefusalsNoted = 50;
constexpr auto RefusalsPeriod = 1min;

const char *errorOf(HelperOutcome::Kind kind)
{
    if (kind == HelperOutcome::Invalid)
        return SD_BUS_ERROR_INVALID_ARGS;
    return kind == HelperOutcome::TooLate ? SD_BUS_ERROR_TIMEOUT : SD_BUS_ERROR_ACCESS_DENIED;
}
} // namespace

const sd_bus_vtable *Manager::methods()
{
    static const std::array table{
        sd_bus_vtable SD_BUS_VTABLE_START(0),
        sd_bus_vtable SD_BUS_METHOD_WITH_NAMES(
            "AddLocalSource", "s", SD_BUS_PARAM(entry), "b", SD_BUS_PARAM(done), called, Everybody),
        sd_bus_vtable SD_BUS_METHOD_WITH_NAMES("AddSignedLocalSource",
                                               "ss",
                                               SD_BUS_PARAM(entry) SD_BUS_PARAM(key),
                                               "b",
                                               SD_BUS_PARAM(done),
                                               called,
                                               Everybody),
        sd_bus_vtable SD_BUS_METHOD_WITH_NAMES(
            "RemoveLocalSource", "s", SD_BUS_PARAM(entry), "b", SD_BUS_PARAM(done), called, Everybody),
        sd_bus_vtable SD_BUS_METHOD_WITH_NAMES("PublishRepo",
                                               "sii",
                                               SD_BUS_PARAM(path) SD_BUS_PARAM(port) SD_BUS_PARAM(protocol),
                                               "b",
                                               SD_BUS_PARAM(done),
                                               called,
                                               Everybody),
        sd_bus_vtable SD_BUS_METHOD_WITH_NAMES("UnpublishRepo",
                                               "ii",
                                               SD_BUS_PARAM(port) SD_BUS_PARAM(protocol),
                                               "b",
                                               SD_BUS_PARAM(done),
                                               called,
                                               Everybody),
        sd_bus_vtable SD_BUS_SIGNAL_WITH_NAMES("Error", "is", SD_BUS_PARAM(error) SD_BUS_PARAM(message), 0),
        sd_bus_vtable SD_BUS_VTABLE_END,
    };
    return table.data();
}

Manager::Manager(BusConnection &bus, Work work, Times times)
    : m_bus(bus)
    , m_work(std::move(work))
    , m_times(times)
    , m_authority(bus)
{
    m_worker.setMaxThreadCount(1);
    m_idle.setSingleShot(true);
    m_idle.setInterval(times.idle);
    connect(&m_idle, &QTimer::timeout, this, &Manager::leave);
    m_limit.setSingleShot(true);
    connect(&m_limit, &QTimer::timeout, this, &Manager::expire);
}

Manager::~Manager()
{
    m_worker.waitForDone();
}

void Manager::start()
{
    sd_bus *bus = m_bus.get();
    sd_bus_slot *slot = nullptr;
    bool isDone = sd_bus_add_filter(bus, &slot, filter, this) >= 0;
    m_slots.emplace_back(std::exchange(slot, nullptr));
    // One match rule for all callers: the bus allows fewer rules than there can be callers.
    const char *rule = "type='signal',sender='org.freedesktop.DBus',interface='org.freedesktop.DBus',"
                       "member='NameOwnerChanged',arg2=''";
    isDone = sd_bus_add_match_async(bus, &slot, rule, nameLost, nullptr, this) >= 0 && isDone;
    m_slots.emplace_back(std::exchange(slot, nullptr));
    // The object is registered first: waiting calls arrive together with the name.
    isDone = sd_bus_add_object_vtable(bus, &slot, Object, Interface, methods(), this) >= 0 && isDone;
    m_slots.emplace_back(slot);
    const SdBus::Message call = m_bus.newCall(Bus, BusObject, Bus, "RequestName");
    if (isDone && call
        && sd_bus_message_append(call.get(), "su", Service.toLatin1().constData(), DoNotQueue) >= 0)
        m_naming = m_bus.call(call, [this](sd_bus_message *reply) { named(reply); });
    if (!m_naming) {
        QMetaObject::invokeMethod(
            this, [this] { Q_EMIT unavailable(QStringLiteral("Out of memory")); }, Qt::QueuedConnection);
    }
}

void Manager::named(sd_bus_message *reply)
{
    uint32_t result = 0;
    const sd_bus_error *error = sd_bus_message_get_error(reply);
    if (error != nullptr || sd_bus_message_read(reply, "u", &result) <= 0 || result != PrimaryOwner) {
        m_hasName = false;
        Q_EMIT unavailable(error == nullptr ? QStringLiteral("Another program has it.")
                                            : QString::fromUtf8(error->message));
        return;
    }
    // Only now can we be sure that no other helper is still working.
    m_worker.start([this] {
        m_work.recover();
        QMetaObject::invokeMethod(
            this,
            [this] {
                m_isWorking = false;
                workOn();
                settle();
            },
            Qt::QueuedConnection);
    });
}

void Manager::stop()
{
    // The service manager sends SIGTERM when the name is released. Ignored, because the helper is already ending.
    if (m_isLeaving)
        return;
    for (const Number number : numbersOf([](const Open &open) { return !open.isWorking; })) {
        replyError(m_open.at(number).call.get(),
                   SD_BUS_ERROR_NO_REPLY,
                   QStringLiteral("The helper is being stopped."));
        close(number);
    }
    leave();
}

int Manager::filter(sd_bus_message *message, void *manager, sd_bus_error * /*error*/)
{
    if (sd_bus_message_is_method_call(message, nullptr, nullptr) <= 0
        || sd_bus_message_get_expect_reply(message) > 0)
        return 0;
    // A caller that expects no reply does not need the request; the user is not asked for a password.
    static_cast<Manager *>(manager)->noteRefusal(
        QStringLiteral("a request of %1 that wants no answer is not done")
            .arg(QString::fromLatin1(sd_bus_message_get_sender(message))));
    return 1;
}

int Manager::called(sd_bus_message *call, void *manager, sd_bus_error *error)
{
    return static_cast<Manager *>(manager)->take(call, error);
}

int Manager::take(sd_bus_message *call, sd_bus_error *error)
{
    const QByteArray caller = sd_bus_message_get_sender(call);
    const auto refuse = [&caller, error, this] {
        noteRefusal(QStringLiteral("%1 has too many requests open").arg(QString::fromLatin1(caller)));
        return sd_bus_error_set_const(error, SD_BUS_ERROR_LIMITS_EXCEEDED, TooMany);
    };
    if (!m_callers.hasPlace(caller))
        return refuse();
    HelperRequest request;
    const QString problem = RequestMessage::read(call, &request);
    if (!problem.isEmpty()) {
        noteRefusal(QStringLiteral("a request of %1: %2").arg(QString::fromLatin1(caller), problem));
        reply(call, {HelperOutcome::Invalid, problem});
        return 1;
    }
    if (!m_callers.takePlace(caller, RequestMessage::sizeOf(request)))
        return refuse();
    m_idle.stop();
    const Number number = ++m_count;
    Open &open = m_open[number];
    open.request = request;
    open.call.reset(sd_bus_message_ref(call));
    open.caller = caller;
    open.limit = QDeadlineTimer(m_times.begin);
    if (!m_limit.isActive())
        m_limit.start(m_times.begin);
    if (m_callers.userOf(caller))
        admit(number);
    else
        identify(caller);
    return 1;
}

void Manager::identify(const QByteArray &caller)
{
    if (m_identifying.find(caller) != m_identifying.end())
        return;
    const SdBus::Message call = m_bus.newCall(Bus, BusObject, Bus, "GetConnectionUnixUser");
    if (call && sd_bus_message_append(call.get(), "s", caller.constData()) >= 0)
        m_identifying[caller]
            = m_bus.call(call, [this, caller](sd_bus_message *reply) { identified(caller, reply); });
}

void Manager::identified(const QByteArray &caller, sd_bus_message *reply)
{
    m_identifying.erase(caller);
    uint32_t user = 0;
    const bool isKnown
        = sd_bus_message_get_error(reply) == nullptr && sd_bus_message_read(reply, "u", &user) > 0;
    if (isKnown)
        m_callers.identified(caller, user);
    for (const Number number : numbersOf([&caller](const Open &open) { return open.caller == caller; })) {
        Open &open = m_open.at(number);
        if (!isKnown) {
            answer(number,
                   {HelperOutcome::Refused, QStringLiteral("The bus does not tell who the caller is.")});
            continue;
        }
        open.hasPlace = m_callers.takePlace(caller, RequestMessage::sizeOf(open.request));
        if (open.hasPlace) {
            admit(number);
            continue;
        }
        noteRefusal(QStringLiteral("user %1 has too many requests open").arg(user));
        replyError(open.call.get(), SD_BUS_ERROR_LIMITS_EXCEEDED, QLatin1String(TooMany));
        close(number);
    }
}

void Manager::admit(Number number)
{
    Open &open = m_open.at(number);
    const QString problem = RequestRules::problem(open.request);
    if (!problem.isEmpty()) {
        answer(number, {HelperOutcome::Invalid, problem});
        return;
    }
    open.isNoted = true;
    Journal::write(Journal::Info, describe(number));
    ask(number);
}

void Manager::ask(Number number)
{
    Open &open = m_open.at(number);
    open.question = m_authority.check(open.caller,
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
    if (open.question.isEmpty())
        answer(number, {HelperOutcome::Refused, QStringLiteral("polkit could not be asked.")});
}

void Manager::workOn()
{
    if (m_isWorking || m_queue.empty())
        return;
    const Number number = m_queue.front();
    m_queue.pop_front();
    Open &open = m_open.at(number);
    if (open.limit.hasExpired()) {
        expire();
        workOn();
        return;
    }
    m_isWorking = true;
    open.isWorking = true;
    m_worker.start([this, number, request = open.request] {
        const HelperOutcome outcome = m_work.run(request);
        QMetaObject::invokeMethod(
            this,
            [this, number, outcome] {
                m_isWorking = false;
                answer(number, outcome);
                workOn();
            },
            Qt::QueuedConnection);
    });
}

void Manager::answer(Number number, const HelperOutcome &outcome)
{
    const Open &open = m_open.at(number);
    if (outcome.kind == HelperOutcome::Done)
        Journal::write(Journal::Notice, QStringLiteral("request %1: done").arg(number));
    else if (open.isNoted)
        Journal::write(Journal::Warning,
                       QStringLiteral("request %1: %2").arg(QString::number(number), outcome.reason));
    else
        noteRefusal(QStringLiteral("%1: %2").arg(describe(number), outcome.reason));
    reply(open.call.get(), outcome);
    close(number);
}

void Manager::reply(sd_bus_message *call, const HelperOutcome &outcome)
{
    sd_bus_message *created = nullptr;
    if (outcome.kind != HelperOutcome::Done) {
        // Sent to the caller alone: other programs on the bus must not learn about the request.
        sd_bus_message_new_signal(m_bus.get(), &created, Object, Interface, "Error");
        const SdBus::Message error(created);
        if (sd_bus_message_append(created, "is", int32_t(outcome.kind), outcome.reason.toUtf8().constData())
                >= 0
            && sd_bus_message_set_destination(created, sd_bus_message_get_sender(call)) >= 0)
            m_bus.send(error);
    }
    if (outcome.kind != HelperOutcome::Done && outcome.kind != HelperOutcome::Failed) {
        replyError(call, errorOf(outcome.kind), outcome.reason);
        return;
    }
    sd_bus_message_new_method_return(call, &created);
    const SdBus::Message answer(created);
    if (sd_bus_message_append(created, "b", int(outcome.kind == HelperOutcome::Done)) >= 0)
        m_bus.send(answer);
}

void Manager::replyError(sd_bus_message *call, const char *name, const QString &reason)
{
    sd_bus_message *created = nullptr;
    sd_bus_message_new_method_errorf(call, &created, name, "%s", reason.toUtf8().constData());
    m_bus.send(SdBus::Message(created));
}

void Manager::noteRefusal(const QString &text)
{
    if (m_refusals.hasExpired()) {
        m_refusals.setRemainingTime(RefusalsPeriod);
        m_refusalCount = 0;
    }
    if (++m_refusalCount <= MostRefusalsNoted)
        Journal::write(Journal::Warning, text);
    else if (m_refusalCount == MostRefusalsNoted + 1)
        Journal::write(Journal::Warning, QStringLiteral("more requests are refused than are written down"));
}

void Manager::close(Number number)
{
    const auto found = m_open.find(number);
    const Open &open = found->second;
    if (!open.question.isEmpty())
        m_authority.cancel(open.question);
    if (open.hasPlace)
        m_callers.givePlaceBack(open.caller, RequestMessage::sizeOf(open.request));
    m_queue.erase(std::remove(m_queue.begin(), m_queue.end(), number), m_queue.end());
    m_open.erase(found);
    settle();
}

int Manager::nameLost(sd_bus_message *signal, void *manager, sd_bus_error * /*error*/)
{
    const char *name = nullptr;
    if (sd_bus_message_read(signal, "s", &name) > 0)
        static_cast<Manager *>(manager)->forget(name);
    return 0;
}

void Manager::forget(const QByteArray &caller)
{
    // Work that has begun is finished, because a half-done change is worse than a complete one.
    for (const Number number :
         numbersOf([&caller](const Open &open) { return open.caller == caller && !open.isWorking; })) {
        if (m_open.at(number).isNoted)
            Journal::write(Journal::Info, QStringLiteral("request %1: the caller has left").arg(number));
        close(number);
    }
    m_identifying.erase(caller);
    m_callers.left(caller);
}

void Manager::expire()
{
    const HelperOutcome outcome{HelperOutcome::TooLate,
                                QStringLiteral("The request was not authorised and begun in time.")};
    for (const Number number :
         numbersOf([](const Open &open) { return !open.isWorking && open.limit.hasExpired(); }))
        answer(number, outcome);
    const Numbers waiting = numbersOf([](const Open &open) { return !open.isWorking; });
    if (!waiting.empty())
        m_limit.start(int(m_open.at(waiting.front()).limit.remainingTime()));
}

void Manager::leave()
{
    m_isLeaving = true;
    m_idle.stop();
    const SdBus::Message call = m_bus.newCall(Bus, BusObject, Bus, "ReleaseName");
    if (call && sd_bus_message_append(call.get(), "s", Service.toLatin1().constData()) >= 0)
        m_releasing = m_bus.call(call, [this](sd_bus_message * /*reply*/) {
            // All calls that arrived while we owned the name came before this reply.
            m_hasName = false;
            settle();
        });
}

void Manager::settle()
{
    if (!m_open.empty() || m_isWorking)
        return;
    if (!m_isLeaving)
        m_idle.start();
    else if (!m_hasName)
        Q_EMIT finished();
}

Manager::Numbers Manager::numbersOf(const std::function<bool(const Open &)> &isMeant) const
{
    Numbers numbers;
    for (const auto &[number, open] : m_open) {
        if (isMeant(open))
            numbers.push_back(number);
    }
    return numbers;
}

QString Manager::describe(Number number) const
{
    const Open &open = m_open.at(number);
    const auto user = m_callers.userOf(open.caller);
    return QStringLiteral("request %1 of %2, user %3: %4")
        .arg(QString::number(number),
             QString::fromLatin1(open.caller),
             user ? QString::number(*user) : QStringLiteral("unknown"),
             open.request.describe());
}
