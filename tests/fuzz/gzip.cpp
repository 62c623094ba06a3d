// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archive/gzipdevice.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"

#include <QFile>

#include <zlib.h>

namespace
{
QByteArray uncompressed(const QString &name, int expectedSize)
{
    const gzFile file = gzopen(QFile::encodeName(name).constData(), "rb");
    FUZZ_RULE(file != nullptr && gzdirect(file) == 0);
    QByteArray result(expectedSize + 1, '\0');
    const int got = gzread(file, result.data(), static_cast<unsigned>(result.size()));
    // gzclose_r() reports whether the final checksum is correct.
    const int closed = gzclose_r(file);
    FUZZ_RULE(got == expectedSize && closed == Z_OK);
    result.truncate(got);
    return result;
}
} // namespace

void FuzzTarget::gzip(std::string_view input)
{
    // The first byte of three selects an operation; the other two give the number of bytes to write.
    const Fuzzing::MemoryFile memory{QByteArray()};
    QFile target(memory.name());
    FUZZ_RULE(target.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    QByteArray expected;
    {
        GzipDevice device(&target);
        FUZZ_RULE(device.open(QIODevice::WriteOnly));
        bool hasCheckpoint = false;
        int checkpoint = 0;
        for (std::size_t i = 0; i + 2 < input.size(); i += 3) {
            const int length = static_cast<uchar>(input[i + 1]) * static_cast<uchar>(input[i + 2]);
            switch (static_cast<uchar>(input[i]) % 6) {
            case 0:
                device.setStored(true);
                break;
            case 1:
                device.setStored(false);
                break;
            case 2:
                device.checkpoint();
                hasCheckpoint = true;
                checkpoint = expected.size();
                break;
            case 3:
                if (hasCheckpoint) {
                    device.rollback();
                    expected.truncate(checkpoint);
                }
                break;
            default:
                QByteArray data;
                for (int j = 0; j < length; ++j)
                    data += static_cast<char>(j * input[i] + j / 7);
                FUZZ_RULE(device.write(data) == data.size());
                expected += data;
                break;
            }
        }
        FUZZ_RULE(device.finish() && device.failure().isEmpty());
    }
    target.close();
    FUZZ_RULE(uncompressed(memory.name(), expected.size()) == expected);
}
