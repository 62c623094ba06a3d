// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archive/gzipdevice.h"

#include <QFileDevice>

#include <array>
#include <utility>

#include <zlib.h>

namespace
{
constexpr int BlockSize = 1 << 20;
/** Most blocks that wait for the thread: enough for the time in which a slow file is read, and little memory. */
constexpr std::size_t QueueLength = 8;
} // namespace

/** The compressor and its output file. */
class GzipDevice::Stream
{
public:
    explicit Stream(QFileDevice *target)
        : m_target(target)
        , m_output(BlockSize, Qt::Uninitialized)
    {
        constexpr int GzipWindow = 15 + 16; // the largest window, with gzip's header and trailer
        constexpr int MemoryLevel = 8; // a higher level is slower by a third and saves nothing
        m_valid
            = deflateInit2(&m_zlib, Level, Z_DEFLATED, GzipWindow, MemoryLevel, Z_DEFAULT_STRATEGY) == Z_OK;
        resetOutput();
    }
    ~Stream()
    {
        deflateEnd(&m_zlib);
        deflateEnd(&m_saved);
    }
    Stream(const Stream &) = delete;
    Stream &operator=(const Stream &) = delete;

    QString failure() const { return m_valid ? m_target->errorString() : qt_error_string(ENOMEM); }

    bool write(const QByteArray &data, bool stored)
    {
        return setLevel(stored ? Z_NO_COMPRESSION : Level) && deflateAll(data, Z_NO_FLUSH);
    }

    bool end() { return deflateAll({}, Z_FINISH) && flushOutput(); }

    bool save()
    {
        if (!flushOutput())
            return false;
        deflateEnd(&m_saved);
        m_valid = deflateCopy(&m_saved, &m_zlib) == Z_OK;
        m_savedLevel = m_level;
        m_savedSize = m_written;
        return m_valid;
    }

    bool restore()
    {
        deflateEnd(&m_zlib);
        m_valid = deflateCopy(&m_zlib, &m_saved) == Z_OK;
        m_level = m_savedLevel;
        m_written = m_savedSize;
        resetOutput();
        return m_valid && m_target->seek(m_written) && m_target->resize(m_written);
    }

private:
    static constexpr int Level = 6;

    QFileDevice *m_target;
    QByteArray m_output;
    z_stream m_zlib = {};
    z_stream m_saved = {};
    int m_level = Level;
    int m_savedLevel = Level;
    qint64 m_written = 0;
    qint64 m_savedSize = 0;
    bool m_valid = false;

    void resetOutput()
    {
        m_zlib.next_out = reinterpret_cast<Bytef *>(m_output.data());
        m_zlib.avail_out = static_cast<uInt>(m_output.size());
    }

    bool flushOutput()
    {
        const qint64 size = m_output.size() - static_cast<qint64>(m_zlib.avail_out);
        const bool written = size == 0 || m_target->write(m_output.constData(), size) == size;
        m_written += size;
        resetOutput();
        return written;
    }

    bool setLevel(int level)
    {
        if (!m_valid || level == m_level)
            return m_valid;
        // deflateParams() compresses earlier data with the earlier level, and this may need more output space.
        int result = deflateParams(&m_zlib, level, Z_DEFAULT_STRATEGY);
        while (result == Z_BUF_ERROR) {
            if (!flushOutput())
                return false;
            result = deflateParams(&m_zlib, level, Z_DEFAULT_STRATEGY);
        }
        m_level = level;
        return result == Z_OK;
    }

    bool deflateAll(const QByteArray &data, int flush)
    {
        if (!m_valid)
            return false;
        // The input of zlib is not const, but zlib only reads it.
        m_zlib.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(data.constData()));
        m_zlib.avail_in = static_cast<uInt>(data.size());
        int result = Z_OK;
        do {
            if (m_zlib.avail_out == 0 && !flushOutput())
                return false;
            result = deflate(&m_zlib, flush);
        } while (result == Z_OK && (m_zlib.avail_in > 0 || m_zlib.avail_out == 0 || flush == Z_FINISH));
        m_zlib.next_in = nullptr;
        return result == Z_OK || result == Z_STREAM_END || result == Z_BUF_ERROR;
    }
};

GzipDevice::GzipDevice(QFileDevice *target)
    : m_stream(std::make_unique<Stream>(target))
{
    m_pending.reserve(BlockSize);
    m_thread = std::thread([this] { work(); });
}

GzipDevice::~GzipDevice()
{
    finish();
}

void GzipDevice::setStored(bool stored)
{
    if (stored == m_stored)
        return;
    handOver(m_stored ? Order::Store : Order::Compress);
    m_stored = stored;
}

void GzipDevice::checkpoint()
{
    handOver(m_stored ? Order::Store : Order::Compress);
    handOver(Order::Checkpoint);
}

void GzipDevice::rollback()
{
    m_pending.clear();
    handOver(Order::Rollback);
}

bool GzipDevice::finish()
{
    if (!m_ended) {
        m_ended = true;
        handOver(m_stored ? Order::Store : Order::Compress);
        handOver(Order::End);
        m_thread.join();
    }
    return !m_failed;
}

QString GzipDevice::failure() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_failure;
}

qint64 GzipDevice::readData(char * /*data*/, qint64 /*maxSize*/)
{
    return -1;
}

qint64 GzipDevice::writeData(const char *data, qint64 size)
{
    if (m_failed) {
        setErrorString(failure());
        return -1;
    }
    qint64 taken = 0;
    while (taken < size) {
        const auto part = static_cast<int>(qMin<qint64>(size - taken, BlockSize - m_pending.size()));
        m_pending.append(data + taken, part);
        taken += part;
        if (m_pending.size() >= BlockSize)
            handOver(m_stored ? Order::Store : Order::Compress);
    }
    return size;
}

void GzipDevice::handOver(Order order)
{
    const bool hasData = order == Order::Store || order == Order::Compress;
    if (hasData && m_pending.isEmpty())
        return;
    Task task{order, {}};
    if (hasData) {
        task.data = std::exchange(m_pending, {});
        m_pending.reserve(BlockSize);
    }
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait(lock, [this] { return m_tasks.size() < QueueLength; });
    m_tasks.push_back(std::move(task));
    m_changed.notify_all();
}

void GzipDevice::work()
{
    Order last = Order::Compress;
    while (last != Order::End) {
        Task task;
        {
            std::unique_lock<std::mutex> lock(m_mutex);
            m_changed.wait(lock, [this] { return !m_tasks.empty(); });
            task = std::move(m_tasks.front());
            m_tasks.pop_front();
            m_changed.notify_all();
        }
        last = task.order;
        // After a failure, further tasks are only removed, so that no writer waits.
        if (!m_failed)
            perform(task);
    }
}

void GzipDevice::perform(const Task &task)
{
    bool done = true;
    switch (task.order) {
    case Order::Compress:
    case Order::Store:
        done = m_stream->write(task.data, task.order == Order::Store);
        break;
    case Order::Checkpoint:
        done = m_stream->save();
        break;
    case Order::Rollback:
        done = m_stream->restore();
        break;
    case Order::End:
        done = m_stream->end();
        break;
    }
    if (done)
        return;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_failure = m_stream->failure();
    }
    m_failed = true;
}
