// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/fuzzing.h"

#include <algorithm>

#include <sys/mman.h>
#include <unistd.h>

namespace
{
constexpr char RepeatMark = '\x01';
constexpr char NumberMark = '\x02';
} // namespace

namespace Fuzzing
{
void fail(const char *rule, const char *file, int line, const std::string &details)
{
    throw Broken(std::string(file) + ':' + std::to_string(line) + ": " + rule
                 + (details.empty() ? details : ": " + details));
}

void requireEqual(
    const QString &actual, const QString &expected, const char *rule, const char *file, int line)
{
    if (actual != expected)
        fail(rule, file, line, '"' + actual.toStdString() + "\", not \"" + expected.toStdString() + '"');
}

QByteArray expanded(std::string_view input)
{
    const QByteArray bytes(input.data(), static_cast<int>(input.size()));
    const int begin = bytes.indexOf(RepeatMark);
    const int end = begin < 0 ? -1 : bytes.indexOf(RepeatMark, begin + 1);
    if (end <= begin + 1)
        return bytes;
    const QByteArray unit = bytes.mid(begin + 1, end - begin - 1);
    const QByteArray rest = bytes.mid(end + 1);
    QByteArray result = bytes.left(begin);
    for (int number = 0; result.size() < repeatedSize; ++number)
        result += QByteArray(unit).replace(NumberMark, QByteArray::number(number));
    return result + rest;
}

QString expandedText(std::string_view input)
{
    return QString::fromUtf8(expanded(input));
}

QByteArray withRightSums(QByteArray archive)
{
    constexpr int BlockSize = 512;
    constexpr int SumOffset = 148;
    constexpr int SumLength = 8;
    constexpr int MagicOffset = 257;
    for (int block = 0; block + BlockSize <= archive.size(); block += BlockSize) {
        if (archive.mid(block + MagicOffset, 5) != "ustar")
            continue;
        archive.replace(block + SumOffset, SumLength, QByteArray(SumLength, ' '));
        int sum = 0;
        for (int i = 0; i < BlockSize; ++i)
            sum += static_cast<uchar>(archive.at(block + i));
        const QByteArray digits = QByteArray::number(sum, 8).rightJustified(SumLength - 2, '0');
        archive.replace(block + SumOffset, SumLength, QByteArray(digits + QByteArray("\0 ", 2)));
    }
    return archive;
}

bool breaksLine(const QString &text)
{
    return text.contains(QLatin1Char('\n'));
}

MemoryFile::MemoryFile(const QByteArray &contents)
    : m_descriptor(::memfd_create("fuzz", MFD_CLOEXEC))
{
    if (m_descriptor < 0
        || ::write(m_descriptor, contents.constData(), static_cast<std::size_t>(contents.size()))
               != contents.size())
        fail("a file in memory", __FILE__, __LINE__);
}

MemoryFile::~MemoryFile()
{
    ::close(m_descriptor);
}

QString MemoryFile::name() const
{
    return QStringLiteral("/proc/self/fd/%1").arg(m_descriptor);
}
} // namespace Fuzzing
