// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QIODevice>

#include <atomic>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>

class QFileDevice;

/**
 * Writes what it is given to a file as one gzip stream (RFC 1952). What is compressed already can be stored in the
 * stream as it is, which is some ten times as fast and costs a few bytes; any reader of gzip takes either. A thread of
 * the device's own compresses and writes, so that reading goes on meanwhile. Use it from one thread.
 */
class GzipDevice : public QIODevice
{
    Q_OBJECT
public:
    /** `target` is open for writing, and nobody else touches it before finish() or the end of this object. */
    explicit GzipDevice(QFileDevice *target);
    ~GzipDevice() override;
    GzipDevice(const GzipDevice &) = delete;
    GzipDevice &operator=(const GzipDevice &) = delete;

    /** Whether what is written from now on is stored instead of compressed. */
    void setStored(bool stored);
    /** Remembers this place for rollback(). */
    void checkpoint();
    /** Forgets what was written since the last checkpoint(). */
    void rollback();
    /** Ends the stream and waits until all is written; false when a write failed, see failure(). */
    bool finish();
    /** Why writing failed, in the system's words; empty as long as it has not. */
    QString failure() const;

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char *data, qint64 maxSize) override;
    qint64 writeData(const char *data, qint64 size) override;

private:
    class Stream;
    enum class Order { Compress, Store, Checkpoint, Rollback, End };
    struct Task
    {
        Order order = Order::Compress;
        QByteArray data;
    };

    void handOver(Order order);
    void work();
    void perform(const Task &task);

    std::unique_ptr<Stream> m_stream; ///< the thread's
    QByteArray m_pending;
    bool m_stored = false;
    bool m_ended = false;
    std::atomic<bool> m_failed{false};

    mutable std::mutex m_mutex; ///< guards what follows, up to the blank line
    std::deque<Task> m_tasks;
    QString m_failure;

    std::condition_variable m_changed;
    std::thread m_thread;
};
