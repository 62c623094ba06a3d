// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

#include <memory>

class QSocketNotifier;

/**
 * Starts the user's program for managing keys, and watches it until it ends. The program is independent of us: it stays
 * when this object is deleted or our program ends.
 */
class KeyManager : public QObject
{
    Q_OBJECT
public:
    explicit KeyManager(QObject *parent);
    ~KeyManager() override;

    /** Looks for the program and starts it; returns at once. Does nothing while the started program is running. */
    void start();

Q_SIGNALS:
    /** True from start() until the program has ended or could not be started. */
    void runningChanged(bool isRunning);
    /** The program was not started, because this package is not installed. */
    void packageMissing(const QString &package);
    /** The program is installed, but could not be started. */
    void startFailed(const QString &program);

private:
    void launch();
    void follow(qint64 processId);
    void setRunning(bool isRunning);

    std::unique_ptr<QSocketNotifier> m_end; ///< watches the running program
    bool m_isRunning = false;
};
