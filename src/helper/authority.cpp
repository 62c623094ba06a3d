// SPDX-License-Identifier: GPL-3.0-or-later
#include "helper/authority.h"

#include <cstring>
#include <utility>

namespace
{
constexpr uint32_t AllowUserInteraction = 1;

SdBus::Message newCall(BusConnection &bus, const char *method)
{
    return bus.newCall("org.freedesktop.PolicyKit1",
                       "/org/freedesktop/PolicyKit1/Authority",
                       "org.freedesktop.PolicyKit1.Authority",
                       method);
}

bool append(sd_bus_message *call, const QMap<QString, QString> &details)
{
    bool isDone = sd_bus_message_open_container(call, SD_BUS_TYPE_ARRAY, "{ss}") >= 0;
    for (auto detail = details.cbegin(); detail != details.cend(); ++detail) {
        isDone = isDone
                 && sd_bus_message_append(
                        call, "{ss}", detail.key().toUtf8().constData(), detail.value().toUtf8().constData())
                        >= 0;
    }
    return isDone && sd_bus_message_close_container(call) >= 0;
}

struct Verdict
{
    bool authorised = false;
    QString reason;
};

Verdict verdictOf(sd_bus_message *reply)
{
    if (const sd_bus_error *error = sd_bus_message_get_error(reply))
        return {false, QStringLiteral("polkit could not decide: %1").arg(QString::fromUtf8(error->message))};
    Verdict nonsense{false, QStringLiteral("polkit's answer was not understood.")};
    int authorised = 0;
    int challenge = 0;
    if (sd_bus_message_has_signature(reply, "(bba{ss})") <= 0
        || sd_bus_message_enter_container(reply, SD_BUS_TYPE_STRUCT, "bba{ss}") <= 0
        || sd_bus_message_read(reply, "bb", &authorised, &challenge) <= 0)
        return nonsense;
    if (authorised != 0)
        return {true, {}};
    if (sd_bus_message_enter_container(reply, SD_BUS_TYPE_ARRAY, "{ss}") < 0)
        return nonsense;
    const char *name = nullptr;
    const char *value = nullptr;
    while (sd_bus_message_read(reply, "{ss}", &name, &value) > 0) {
        if (std::strcmp(name, "polkit.dismissed") == 0)
            return {false, QStringLiteral("The authentication was dismissed.")};
    }
    return {false, QStringLiteral("The caller is not authorised.")};
}
} // namespace

QByteArray Authority::check(const QByteArray &caller,
                            const QString &action,
                            const QMap<QString, QString> &details,
                            const Answer &answer)
{
    QByteArray question = "velt-admin-repo-" + QByteArray::number(++m_count);
    const SdBus::Message call = newCall(m_bus, "CheckAuthorization");
    if (!call
        || sd_bus_message_append(call.get(),
                                 "(sa{sv})s",
                                 "system-bus-name",
                                 1,
                                 "name",
                                 "s",
                                 caller.constData(),
                                 action.toUtf8().constData())
               < 0
        || !append(call.get(), details)
        || sd_bus_message_append(call.get(), "us", AllowUserInteraction, question.constData()) < 0)
        return {};
    auto asked = m_bus.call(call, [this, question, answer](sd_bus_message *reply) {
        m_questions.erase(question);
        const Verdict verdict = verdictOf(reply);
        answer(verdict.authorised, verdict.reason);
    });
    if (!asked)
        return {};
    m_questions[question] = std::move(asked);
    return question;
}

void Authority::cancel(const QByteArray &question)
{
    if (m_questions.erase(question) == 0)
        return;
    const SdBus::Message call = newCall(m_bus, "CancelCheckAuthorization");
    if (call && sd_bus_message_append(call.get(), "s", question.constData()) >= 0)
        m_bus.send(call);
}
