// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helper/authority.h"
#include "helper/helperrequest.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QThreadPool>
#include <QTimer>

#include <chrono>
#include <deque>
#include <functional>
#include <map>
#include <optional>

/**
 * The helper's object on the bus. A request travels so: who asks is learnt from the bus, the text of the request is
 * checked, polkit is asked, and then a worker thread does the requests one after another. The calls are answered when
 * all that is over; until then the event loop is free for others. A caller who leaves the bus takes along what has not
 * begun. Without requests for some time, the helper gives up its name and ends.
 */
class Manager : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.corvana.velt.repo.Manager")
public:
    static inline const QString Service = QStringLiteral("org.corvana.velt.repo");

    /** Checks once more what may have changed and does it; called on the worker thread. */
    using Work = std::function<HelperOutcome(const HelperRequest &)>;

    Manager(QDBusConnection bus, Work work, std::chrono::milliseconds idleTime);
    ~Manager() override;

    /** False when the name is somebody else's, or the bus does not let us have it. */
    bool start();
    /** Ends soon: what is being done is finished, and nothing is begun any more. */
    void stop();

public Q_SLOTS:
    // The methods of the bus; the values that they return are never sent, the answers come later.
    Q_SCRIPTABLE bool AddLocalSource(const QString &entry);
    Q_SCRIPTABLE bool RemoveLocalSource(const QString &entry);
    Q_SCRIPTABLE bool PublishRepo(const QString &path, int port, int protocol);
    Q_SCRIPTABLE bool UnpublishRepo(int port, int protocol);

Q_SIGNALS:
    /** Why a request has failed: a HelperOutcome::Kind and a sentence. It goes to the caller alone. */
    Q_SCRIPTABLE void Error(int error, const QString &message);
    /** The name is given up and every request is answered: the program can end. */
    void finished();

private:
    struct Open
    {
        HelperRequest request;
        QDBusMessage call;
        QString question; ///< to polkit; empty while none is asked
        std::optional<uint> user; ///< of the caller, once the bus has told
        bool working = false; ///< on the worker thread
    };
    using Number = quint64;

    QDBusConnection m_bus;
    Work m_work;
    Authority m_authority;
    QDBusServiceWatcher m_callers;
    QTimer m_idle;
    std::map<Number, Open> m_open;
    std::deque<Number> m_queue; ///< authorised, in the order of the work
    Number m_count = 0;
    bool m_leaving = false;
    QThreadPool m_worker;

    bool take(const HelperRequest &request);
    bool hasOpen(const QString &caller) const;
    bool isBusy(uint user) const;
    void identified(Number number, const QDBusMessage &reply);
    void ask(Number number);
    void workOn();
    void answer(Number number, const HelperOutcome &outcome);
    void close(Number number);
    void forget(const QString &caller);
    void leave();
    void settle();
};
