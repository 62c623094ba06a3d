// SPDX-License-Identifier: GPL-3.0-or-later
#include "helper/authority.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <chrono>
#include <utility>

namespace
{
using Details = QMap<QString, QString>;

constexpr uint AllowUserInteraction = 1;
/** Nobody looks for a password that long; a dialog that is older was left behind. */
constexpr std::chrono::milliseconds TimeLimit = std::chrono::minutes(10);

QDBusMessage authorityCall(const QString &method)
{
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.PolicyKit1"),
                                          QStringLiteral("/org/freedesktop/PolicyKit1/Authority"),
                                          QStringLiteral("org.freedesktop.PolicyKit1.Authority"),
                                          method);
}

QVariant subject(const QString &caller)
{
    QDBusArgument structure;
    structure.beginStructure();
    structure << QStringLiteral("system-bus-name") << QVariantMap{{QStringLiteral("name"), caller}};
    structure.endStructure();
    return QVariant::fromValue(structure);
}

struct Verdict
{
    bool authorised = false;
    QString reason;
};

Verdict verdictOf(const QDBusMessage &reply)
{
    if (reply.type() != QDBusMessage::ReplyMessage)
        return {false, QStringLiteral("polkit could not decide: %1").arg(reply.errorMessage())};
    if (reply.signature() != QLatin1String("(bba{ss})"))
        return {false, QStringLiteral("polkit's answer was not understood.")};
    bool authorised = false;
    bool challenge = false;
    Details details;
    const auto structure = reply.arguments().constFirst().value<QDBusArgument>();
    structure.beginStructure();
    structure >> authorised >> challenge >> details;
    structure.endStructure();
    if (authorised)
        return {true, {}};
    if (details.contains(QStringLiteral("polkit.dismissed")))
        return {false, QStringLiteral("The authentication was dismissed.")};
    return {false, QStringLiteral("The caller is not authorised.")};
}
} // namespace

Authority::Authority(QDBusConnection bus, QObject *parent)
    : QObject(parent)
    , m_bus(std::move(bus))
{
    qDBusRegisterMetaType<Details>();
}

QString Authority::check(const QString &caller,
                         const QString &action,
                         const QMap<QString, QString> &details,
                         const Answer &answer)
{
    QString question = QStringLiteral("velt-admin-repo-%1").arg(++m_count);
    QDBusMessage call = authorityCall(QStringLiteral("CheckAuthorization"));
    call.setArguments(
        {subject(caller), action, QVariant::fromValue(details), AllowUserInteraction, question});
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call, int(TimeLimit.count())), this);
    m_questions[question] = watcher;
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, question, answer, watcher] {
        const QDBusMessage reply = watcher->reply();
        m_questions.erase(question);
        watcher->deleteLater();
        // The dialog of a question that nobody waits for any more would stay on the screen.
        if (watcher->isError() && watcher->error().type() == QDBusError::NoReply)
            withdraw(question);
        const Verdict verdict = verdictOf(reply);
        answer(verdict.authorised, verdict.reason);
    });
    return question;
}

void Authority::cancel(const QString &question)
{
    const auto found = m_questions.find(question);
    if (found == m_questions.end())
        return;
    found->second->disconnect(this);
    found->second->deleteLater();
    m_questions.erase(found);
    withdraw(question);
}

void Authority::withdraw(const QString &question)
{
    QDBusMessage call = authorityCall(QStringLiteral("CancelCheckAuthorization"));
    call.setArguments({question});
    m_bus.call(call, QDBus::NoBlock);
}
