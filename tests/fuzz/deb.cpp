// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archive/debcontents.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"

namespace
{
constexpr int HeaderSize = 60;

DebArchiveState stateOf(const QByteArray &bytes)
{
    const Fuzzing::MemoryFile file(bytes);
    DebMember data;
    const auto state = debArchiveState(file.name(), &data);
    if (state == DebArchiveState::Whole) {
        FUZZ_RULE(bytes.mid(static_cast<int>(data.position) - HeaderSize).startsWith(data.name));
        debContentsState(file.name(), data);
    }
    return state;
}
} // namespace

void FuzzTarget::deb(std::string_view input)
{
    const QByteArray bytes = Fuzzing::expanded(input);
    const auto state = stateOf(bytes);
    if (state == DebArchiveState::NoArchive)
        return;
    FUZZ_RULE(bytes.startsWith("!<arch>\n"));
    if (state == DebArchiveState::Truncated)
        return;
    FUZZ_RULE(bytes.contains("data.tar"));

    // Another member of one byte is appended, and then the same member without its byte.
    const QByteArray header = QByteArray("_x").leftJustified(48) + QByteArray("1").leftJustified(10) + "`\n";
    const QByteArray even = bytes + QByteArray(bytes.size() % 2, '\n') + header;
    const auto more = stateOf(even + 'x');
    const auto less = stateOf(even);
    FUZZ_RULE(more != DebArchiveState::Whole || less == DebArchiveState::Truncated);
}
