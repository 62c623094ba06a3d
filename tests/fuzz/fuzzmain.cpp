// SPDX-License-Identifier: GPL-3.0-or-later
// The entry of a fuzzing program; the build names the target.
#include "fuzz/targets.h"

#include <QCoreApplication>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    static const QCoreApplication application(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzTarget::VELT_FUZZ_TARGET({reinterpret_cast<const char *>(data), size});
    return 0;
}
