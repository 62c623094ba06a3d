// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <array>

/**
 * Turns SIGTERM, SIGINT and SIGHUP into a Qt signal, so that the program can end in an orderly way. The signal is
 * emitted in the event loop of the thread that created the object. Only one object may exist. Its destructor restores
 * the default handling of the signals.
 */
class SignalWatcher : public QObject
{
    Q_OBJECT
public:
    explicit SignalWatcher(QObject *parent = nullptr);
    ~SignalWatcher() override;

Q_SIGNALS:
    /** A signal asks the program to end. */
    void terminationRequested();

private:
    void drain();

    std::array<int, 2> m_sockets{-1, -1};
};
