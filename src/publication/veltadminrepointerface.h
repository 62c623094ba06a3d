// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusAbstractInterface>
#include <QDBusError>
#include <QDBusPendingReply>

/**
 * The privileged helper as it is seen on the system bus, which starts it when it is called. The calls let the system
 * ask the user for a password, and give the user the time to type it.
 */
class VeltAdminRepoInterface : public QDBusAbstractInterface
{
    Q_OBJECT
public:
    static constexpr const char *Service = "org.corvana.velt.repo";
    static constexpr const char *Path = "/";
    static constexpr const char *Interface = "org.corvana.velt.repo.Manager";

    explicit VeltAdminRepoInterface(QObject *parent = nullptr);

    QDBusPendingReply<bool> AddLocalSource(const QString &entry);
    /** The entry names the file of the key, which is public and in ASCII armor. */
    QDBusPendingReply<bool> AddSignedLocalSource(const QString &entry, const QString &key);
    QDBusPendingReply<bool> RemoveLocalSource(const QString &entry);
    QDBusPendingReply<bool> PublishRepo(const QString &path, int port, int protocol);
    QDBusPendingReply<bool> UnpublishRepo(int port, int protocol);

    /** What an error of the bus means, in words for the user. */
    static QString describe(QDBusError::ErrorType type);

Q_SIGNALS:
    void Error(int error, const QString &message);

private:
    QDBusPendingCall ask(const QString &method, const QVariantList &arguments);
};
