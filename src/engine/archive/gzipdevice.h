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
 * Writes its data to a file as one gzip stream (RFC 1952). Data that is compressed already can be stored unchanged in
 * the stream. This is about ten times as fast and adds a few bytes; every gzip reader accepts it. A thread of the
 * device compresses and writes, so that the caller can read meanwhile. Use the device from one thread only.
 */
class GzipDevice : public QIODevice
{
    Q_OBJECT
public:
    /** `target` must be open for writing. Nobody else may use it before finish() or the end of this object. */
    explicit GzipDevice(QFileDevice *target);
    ~GzipDevice() override;
    GzipDevice(const GzipDevice &) = delete;
    GzipDevice &operator=(const GzipDevice &) = delete;

    /** Whether further data is stored and not compressed. */
    void setStored(bool stored);
    /** Remembers the present position for rollback(). */
    void checkpoint();
    /** Discards all data since the last checkpoint(). */
    void rollback();
    /** Ends the stream and waits until all data is written; false when a write failed, see failure(). */
    bool finish();
    /** The system's error text of a failed write; empty without a failure. */
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

    std::unique_ptr<Stream> m_stream; ///< used by m_thread
    QByteArray m_pending;
    bool m_stored = false;
    bool m_ended = false;
    std::atomic<bool> m_failed{false};

    mutable std::mutex m_mutex; ///< guards the members up to the blank line
    std::deque<Task> m_tasks;
    QString m_failure;

    std::condition_variable m_changed;
    std::thread m_thread;
};
