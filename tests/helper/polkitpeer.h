// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QMap>
#include <QStringList>
#include <QVector>

/** Plays polkit on a bus, as long as it lives. */
class PolkitPeer : public QDBusVirtualObject
{
public:
    enum Answer {
        Yes,
        No,
        Dismissed,
        Broken, ///< an error
        Nonsense, ///< a yes in another form
        Silence ///< until the question is taken back
    };
    struct Question
    {
        QString subject;
        QString action;
        QMap<QString, QString> details;
        uint flags = 0;
        QString id;
    };

    explicit PolkitPeer(const QString &busAddress);
    ~PolkitPeer() override;

    Answer answer = Yes;
    QVector<Question> questions;
    QStringList takenBack; ///< ids

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;
};
