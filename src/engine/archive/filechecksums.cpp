// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archive/filechecksums.h"

#include "files/regularfile.h"

#include <mutex>
#include <vector>

#include <apt-pkg/hashes.h>

namespace
{
constexpr int BufferSize = 1 << 16;
constexpr unsigned int Kinds = Hashes::MD5SUM | Hashes::SHA1SUM | Hashes::SHA256SUM;

/** The library is set up by its first use, without a lock. */
void prepareLibrary()
{
    static std::once_flag once;
    std::call_once(once, [] { Hashes first(Kinds); });
}
} // namespace

FileChecksums FileChecksums::of(const QString &path, const std::function<bool()> &stopped)
{
    prepareLibrary();
    RegularFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return {};
    Hashes hashes(Kinds);
    std::vector<unsigned char> buffer(BufferSize);
    qint64 size = 0;
    for (;;) {
        const qint64 read = file.read(reinterpret_cast<char *>(buffer.data()), BufferSize);
        if (read < 0 || (stopped && stopped()))
            return {};
        if (read == 0)
            break;
        hashes.Add(buffer.data(), static_cast<unsigned long long>(read));
        size += read;
    }
    const auto sum = [&hashes](Hashes::SupportedHashes kind) {
        return QByteArray::fromStdString(hashes.GetHashString(kind).HashValue());
    };
    return {size, sum(Hashes::MD5SUM), sum(Hashes::SHA1SUM), sum(Hashes::SHA256SUM)};
}
