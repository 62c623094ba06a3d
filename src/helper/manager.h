// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helper/authority.h"
#include "helper/busconnection.h"
#include "helper/callers.h"
#include "helper/helperrequest.h"
#include "server/answerlimits.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QThreadPool>
#include <QTimer>

#include <chrono>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <vector>

/**
 * The helper's object on the bus. A request goes through these steps: the bus identifies the caller, the text of the
 * request is checked, polkit is asked, and a worker thread does one request after another. The call is answered after
 * the last step; the event loop is free meanwhile. When a caller leaves the bus, its requests are dropped unless their
 * work has begun. After some time without requests, the helper releases its name and ends.
 */
class Manager : public QObject
{
    Q_OBJECT
public:
    static inline const QString Service = QStringLiteral("org.corvana.velt.repo");

    /** Both functions are called on the worker thread. */
    struct Work
    {
        /** Completes or undoes the work that an earlier run has left half-done. It is called before everything else. */
        std::function<void()> recover;
        /** Checks again everything that may have changed, and does the work. */
        std::function<HelperOutcome(const HelperRequest &)> run;
    };
    /** Time limits of the helper. */
    struct Times
    {
        std::chrono::milliseconds idle;
        std::chrono::milliseconds begin = AnswerLimits::Begin;
    };

    /** `bus` must outlive the manager. */
    Manager(BusConnection &bus, Work work, Times times);
    ~Manager() override;

    /** Requests the name from the bus. */
    void start();
    /** Ends soon: the current request is finished, and no other is begun. */
    void stop();

Q_SIGNALS:
    /** Another program owns the name, or the bus does not allow it. */
    void unavailable(const QString &reason);
    /** The name is released and every request is answered: the program can end. */
    void finished();

private:
    struct Open
    {
        HelperRequest request;
        SdBus::Message call;
        QByteArray caller;
        QDeadlineTimer limit; ///< for the beginning of the work
        QByteArray question; ///< to polkit; empty while none is pending
        bool hasPlace = true;
        bool isNoted = false; ///< written to the journal
        bool isWorking = false; ///< on the worker thread
    };
    using Number = quint64;
    using Numbers = std::vector<Number>;

    BusConnection &m_bus;
    Work m_work;
    Times m_times;
    Authority m_authority;
    Callers m_callers;
    std::vector<SdBus::Slot> m_slots;
    std::unique_ptr<BusCall> m_naming;
    std::unique_ptr<BusCall> m_releasing;
    std::map<QByteArray, std::unique_ptr<BusCall>> m_identifying; ///< by caller
    std::map<Number, Open> m_open;
    std::deque<Number> m_queue; ///< authorised requests, in the order of the work
    Number m_count = 0;
    QTimer m_idle;
    QTimer m_limit;
    QDeadlineTimer m_refusals{0}; ///< end of the period in which refusals are counted
    int m_refusalCount = 0;
    bool m_isWorking = true; ///< also true until recovery has ended
    bool m_isLeaving = false;
    bool m_hasName = true; ///< also true while the name is being requested
    QThreadPool m_worker;

    static const sd_bus_vtable *methods();
    static int filter(sd_bus_message *message, void *manager, sd_bus_error *error);
    static int called(sd_bus_message *call, void *manager, sd_bus_error *error);
    static int nameLost(sd_bus_message *signal, void *manager, sd_bus_error *error);

    void named(sd_bus_message *reply);
    int take(sd_bus_message *call, sd_bus_error *error);
    void identify(const QByteArray &caller);
    void identified(const QByteArray &caller, sd_bus_message *reply);
    void admit(Number number);
    void ask(Number number);
    void workOn();
    void answer(Number number, const HelperOutcome &outcome);
    void reply(sd_bus_message *call, const HelperOutcome &outcome);
    void replyError(sd_bus_message *call, const char *name, const QString &reason);
    void noteRefusal(const QString &text);
    void close(Number number);
    void forget(const QByteArray &caller);
    void expire();
    void leave();
    void settle();
    Numbers numbersOf(const std::function<bool(const Open &)> &isMeant) const;
    QString describe(Number number) const;
};
