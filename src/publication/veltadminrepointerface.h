// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusAbstractInterface>
#include <QDBusError>
#include <QDBusPendingReply>

/**
 * The privileged helper on the system bus. The bus starts the helper at the first call. A call lets the system ask the
 * user for a password, and waits long enough for the user to type it.
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
    /** The entry names the key's file. The key is public and in ASCII armor. */
    QDBusPendingReply<bool> AddSignedLocalSource(const QString &entry, const QString &key);
    QDBusPendingReply<bool> RemoveLocalSource(const QString &entry);
    QDBusPendingReply<bool> PublishRepo(const QString &path, int port, int protocol);
    QDBusPendingReply<bool> UnpublishRepo(int port, int protocol);

    /** The meaning of an error of the bus, in words for the user. */
    static QString describe(QDBusError::ErrorType type);

Q_SIGNALS:
    void Error(int error, const QString &message);

private:
    QDBusPendingCall ask(const QString &method, const QVariantList &arguments);
};
