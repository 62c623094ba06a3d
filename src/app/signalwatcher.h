// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <array>

/**
 * Turns SIGTERM, SIGINT and SIGHUP into a Qt signal that is emitted in the event loop of the thread that made the
 * object, so that the program can end in its orderly way. Only one object may exist; the signals get their default
 * effect back when it goes.
 */
class SignalWatcher : public QObject
{
    Q_OBJECT
public:
    explicit SignalWatcher(QObject *parent = nullptr);
    ~SignalWatcher() override;

Q_SIGNALS:
    void terminationRequested();

private:
    void drain();

    std::array<int, 2> m_sockets{-1, -1};
};
