// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIODevice>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

#include <rapidjson/reader.h>

/** Reads a device in blocks. It has the functions of a RapidJSON input stream. */
class JsonInput
{
public:
    using Ch = char;

    explicit JsonInput(QIODevice *device)
        : m_device(device)
    {
        fill();
    }

    /** Whether reading failed. The parser sees a failure as the end of the text. */
    bool hasFailed() const { return m_failed; }

    Ch Peek() const { return *m_current; }
    Ch Take()
    {
        const Ch taken = *m_current;
        if (m_current != m_end && ++m_current == m_end)
            fill();
        return taken;
    }
    /** A loop of its own, because half of an indented document is blanks. */
    void skipBlanks()
    {
        while (*m_current == ' ' || *m_current == '\n' || *m_current == '\r' || *m_current == '\t')
            if (++m_current == m_end)
                fill();
    }
    std::size_t Tell() const { return m_read - static_cast<std::size_t>(m_end - m_current); }

    // Needed only for in-situ parsing, which is not used because it needs the whole text in memory.
    Ch *PutBegin() { return nullptr; }
    void Put(Ch /*c*/) { }
    std::size_t PutEnd(Ch * /*begin*/) { return 0; }

private:
    QIODevice *m_device;
    std::array<Ch, 1U << 18U> m_buffer{};
    const Ch *m_current = m_buffer.data();
    const Ch *m_end = m_buffer.data();
    std::size_t m_read = 0;
    bool m_failed = false;

    void fill()
    {
        const qint64 size = m_device->read(m_buffer.data(), static_cast<qint64>(m_buffer.size()));
        m_failed = m_failed || size < 0;
        m_current = m_buffer.data();
        m_end = m_current + (size > 0 ? size : 0);
        m_read += static_cast<std::size_t>(m_end - m_current);
        // The parser reads a zero byte as the end.
        if (m_current == m_end)
            m_buffer[0] = '\0';
    }
};

/** Writes to a device in blocks. It has the functions of a RapidJSON output stream. */
class JsonOutput
{
public:
    using Ch = char;

    explicit JsonOutput(QIODevice *device)
        : m_device(device)
    { }

    /** Whether every write so far succeeded. */
    bool isGood() const { return m_good; }

    void Put(Ch c)
    {
        m_buffer[m_size] = c;
        if (++m_size == m_buffer.size())
            Flush();
    }
    void put(Ch c, std::size_t count)
    {
        while (count > 0) {
            const std::size_t part = std::min(count, m_buffer.size() - m_size);
            std::memset(m_buffer.data() + m_size, c, part);
            m_size += part;
            count -= part;
            if (m_size == m_buffer.size())
                Flush();
        }
    }
    void Flush()
    {
        const auto size = static_cast<qint64>(m_size);
        m_good = m_good && m_device->write(m_buffer.data(), size) == size;
        m_size = 0;
    }

private:
    QIODevice *m_device;
    std::array<Ch, 1U << 18U> m_buffer{};
    std::size_t m_size = 0;
    bool m_good = true;
};

namespace rapidjson
{
template <>
inline void SkipWhitespace(JsonInput &is)
{
    is.skipBlanks();
}

template <>
inline void PutN(JsonOutput &stream, char c, std::size_t n)
{
    stream.put(c, n);
}
} // namespace rapidjson

/** Numbers are kept as text, so that numbers in members that are copied stay unchanged. */
inline constexpr unsigned jsonParseFlags = rapidjson::kParseIterativeFlag
                                           | rapidjson::kParseValidateEncodingFlag
                                           | rapidjson::kParseNumbersAsStringsFlag;
