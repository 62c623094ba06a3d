// SPDX-License-Identifier: GPL-3.0-or-later
// Entry point of a fuzzing program; the build defines the target.
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"

#include <QCoreApplication>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    static const QCoreApplication application(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string_view input(reinterpret_cast<const char *>(data), size);
    // Long inputs take most time and find least, so most inputs are expanded little. The choice depends only on the
    // input.
    constexpr int LongOnes = 16;
    Fuzzing::repeatedSize = std::hash<std::string_view>()(input) % LongOnes == 0 ? 1 << 15 : 1 << 9;
    FuzzTarget::VELT_FUZZ_TARGET(input);
    return 0;
}
