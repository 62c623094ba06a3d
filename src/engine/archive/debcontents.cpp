// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archive/debcontents.h"

#include "engine/archive/memberstream.h"
#include "engine/archive/tarwalk.h"

#include <vector>

namespace
{
constexpr int BufferSize = 1 << 16;
DebContentsState unpack(MemberStream *stream, const std::function<bool()> &stopped)
{
    std::vector<char> buffer(BufferSize);
    TarWalk walk;
    for (;;) {
        if (stopped && stopped())
            return DebContentsState::Unknown;
        const qint64 read = stream->read(buffer.data(), BufferSize);
        if (read < 0 || !walk.take(buffer.data(), read))
            return DebContentsState::Damaged;
        if (read == 0)
            return walk.isComplete() ? DebContentsState::Whole : DebContentsState::Damaged;
    }
}
} // namespace

DebContentsState
debContentsState(const QString &fileName, const DebMember &data, const std::function<bool()> &stopped)
{
    MemberStream stream(fileName, data);
    return stream.isOpen() ? unpack(&stream, stopped) : DebContentsState::Unknown;
}
