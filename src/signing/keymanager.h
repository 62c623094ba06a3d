// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

#include <memory>

class QSocketNotifier;

/**
 * Starts the program with which the user manages keys, and follows it until it ends. The program is not tied to us:
 * it stays when this object, or our whole program, goes.
 */
class KeyManager : public QObject
{
    Q_OBJECT
public:
    explicit KeyManager(QObject *parent);
    ~KeyManager() override;

    /** Looks for the program and starts it; returns at once. Does nothing while one that it started is running. */
    void start();

Q_SIGNALS:
    /** From start() until the program has ended, or could not be started. */
    void runningChanged(bool isRunning);
    /** Not started, because this package is not installed. */
    void packageMissing(const QString &package);
    /** Installed, but not started. */
    void startFailed(const QString &program);

private:
    void launch();
    void follow(qint64 processId);
    void setRunning(bool isRunning);

    std::unique_ptr<QSocketNotifier> m_end; ///< of the running program
    bool m_isRunning = false;
};
