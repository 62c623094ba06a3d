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
 * The helper's object on the bus. A request travels so: who asks is learnt from the bus, the text of the request is
 * checked, polkit is asked, and then a worker thread does the requests one after another. The calls are answered when
 * all that is over; until then the event loop is free for others. A caller who leaves the bus takes along what has not
 * begun. Without requests for some time, the helper gives up its name and ends.
 */
class Manager : public QObject
{
    Q_OBJECT
public:
    static inline const QString Service = QStringLiteral("org.corvana.velt.repo");

    /** Called on the worker thread. */
    struct Work
    {
        /** Brings to an end what an earlier run of the program has left halfway; before everything else. */
        std::function<void()> recover;
        /** Checks once more what may have changed and does it. */
        std::function<HelperOutcome(const HelperRequest &)> run;
    };
    struct Times
    {
        std::chrono::milliseconds idle;
        std::chrono::milliseconds begin = AnswerLimits::Begin;
    };

    /** The connection has to live longer. */
    Manager(BusConnection &bus, Work work, Times times);
    ~Manager() override;

    /** Asks the bus for the name. */
    void start();
    /** Ends soon: what is being done is finished, and nothing is begun any more. */
    void stop();

Q_SIGNALS:
    /** The name is somebody else's, or the bus does not let us have it. */
    void unavailable(const QString &reason);
    /** The name is given up and every request is answered: the program can end. */
    void finished();

private:
    struct Open
    {
        HelperRequest request;
        SdBus::Message call;
        QByteArray caller;
        QDeadlineTimer limit; ///< of the beginning
        QByteArray question; ///< to polkit; empty while none is asked
        bool hasPlace = true;
        bool isNoted = false; ///< in the journal
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
    std::deque<Number> m_queue; ///< authorised, in the order of the work
    Number m_count = 0;
    QTimer m_idle;
    QTimer m_limit;
    QDeadlineTimer m_refusals{0}; ///< the end of the time in which they are counted
    int m_refusalCount = 0;
    bool m_isWorking = true; ///< also until recovery has ended
    bool m_isLeaving = false;
    bool m_hasName = true; ///< or is about to get it
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
