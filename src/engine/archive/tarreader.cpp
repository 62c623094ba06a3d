// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archive/tarreader.h"

#include "core/countof.h"

#include <array>
#include <utility>

#include <unistd.h>
#include <zlib.h>

namespace
{
constexpr unsigned BufferSize = 1U << 18U;
/** Names and extended headers are short. A larger size would only use up memory. */
constexpr qint64 LargestExtension = 1 << 20;
} // namespace

TarReader::TarReader(const QString &archive)
    : m_file(archive)
{
    if (!m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        m_error = m_file.errorString();
        return;
    }
    const int descriptor = ::dup(m_file.handle());
    m_stream = gzdopen(descriptor, "rb");
    if (m_stream == nullptr) {
        m_error = qt_error_string(ENOMEM);
        ::close(descriptor);
        return;
    }
    gzbuffer(m_stream, BufferSize);
}

TarReader::~TarReader()
{
    if (m_stream != nullptr)
        gzclose_r(m_stream);
}

TarHeader TarReader::next()
{
    QByteArray longName;
    QByteArray records;
    for (;;) {
        std::array<char, TarHeader::BlockSize> block = {};
        if (!skip(std::exchange(m_left, 0) + std::exchange(m_padding, 0)))
            return {};
        const bool isRead = readFully(block.data(), TarHeader::BlockSize);
        TarHeader header = isRead ? TarHeader::parse(block.data()) : TarHeader();
        // Some programs omit the empty blocks at the end.
        if (m_begun && m_atEnd)
            header.kind = TarHeader::Kind::End;
        else if (!isRead)
            return {};
        if (header.kind == TarHeader::Kind::Invalid) {
            if (m_begun)
                m_error = tr("The archive is damaged.");
            return {};
        }
        m_begun = true;
        if (header.kind == TarHeader::Kind::End)
            return readToEnd() ? header : TarHeader();

        const bool isLongName = header.kind == TarHeader::Kind::LongName;
        const bool isExtended = header.kind == TarHeader::Kind::Extended;
        const bool isMember = !isLongName && !isExtended && header.kind != TarHeader::Kind::Remark;
        if (isMember && !longName.isEmpty())
            header.name = longName;
        if (isMember && !header.overrule(records)) {
            m_error = tr("The archive is damaged.");
            return {};
        }
        m_left = header.size;
        m_padding = (TarHeader::BlockSize - header.size % TarHeader::BlockSize) % TarHeader::BlockSize;
        if (isMember)
            return header;
        if (isExtended && !readContents(&records))
            return {};
        if (isLongName && !readContents(&longName))
            return {};
        longName.truncate(static_cast<int>(qstrnlen(longName.constData(), uint(longName.size()))));
    }
}

int TarReader::read(char *data, int size)
{
    const int wanted = static_cast<int>(qMin<qint64>(size, m_left));
    if (wanted == 0)
        return 0;
    if (!readFully(data, wanted))
        return -1;
    m_left -= wanted;
    return wanted;
}

bool TarReader::readContents(QByteArray *contents)
{
    if (m_left > LargestExtension) {
        m_error = tr("The archive is damaged.");
        return false;
    }
    contents->resize(static_cast<int>(m_left));
    m_left = 0;
    return readFully(contents->data(), countOf(*contents));
}

bool TarReader::skip(qint64 size)
{
    std::array<char, 1U << 16U> waste = {};
    while (size > 0) {
        const int part = static_cast<int>(qMin<qint64>(size, waste.size()));
        if (!readFully(waste.data(), part))
            return false;
        size -= part;
    }
    return true;
}

bool TarReader::readFully(char *data, int size)
{
    if (m_stream == nullptr)
        return false;
    const int got = gzread(m_stream, data, static_cast<unsigned>(size));
    if (got == size)
        return true;
    int code = Z_OK;
    const char *text = gzerror(m_stream, &code);
    if (code == Z_ERRNO)
        m_error = qt_error_string(errno);
    else if (code == Z_OK || code == Z_BUF_ERROR)
        reportEnd(got == 0 && code == Z_OK);
    else
        m_error = tr("The archive is damaged.") + QLatin1String(" (") + QString::fromLocal8Bit(text)
                  + QLatin1Char(')');
    return false;
}

/** Reads to the end of the stream: its checksum shows whether all data is intact. */
bool TarReader::readToEnd()
{
    std::array<char, 1U << 16U> waste = {};
    int got = 0;
    do {
        got = gzread(m_stream, waste.data(), static_cast<unsigned>(waste.size()));
    } while (got > 0);
    int code = Z_OK;
    gzerror(m_stream, &code);
    if (got == 0 && (code == Z_OK || code == Z_STREAM_END))
        return true;
    m_error = code == Z_BUF_ERROR ? tr("The archive is damaged: its end is missing.")
                                  : tr("The archive is damaged.");
    return false;
}

void TarReader::reportEnd(bool complete)
{
    m_atEnd = complete;
    // Data that is not compressed and not a tar archive may be any file, so the error text stays empty.
    if (m_begun || gzdirect(m_stream) == 0)
        m_error = tr("The archive is damaged: its end is missing.");
}
