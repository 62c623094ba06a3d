// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

/**
 * The parsers of external text, each with rules that hold for every input. A target throws Fuzzing::Broken when a rule
 * does not hold. Inputs are stored in corpus/, with one folder for each target:
 * an index of packages, the output of dpkg -I, conf/distributions and conf/options, arguments and output of reprepro,
 * output of apt and apt-cache, sources of users and files, a Depends field, two versions, the stored results of
 * dependency checks, a tar archive, a package file, its control files, the data written to a compressed archive, source
 * lines and their file, output of gpg, requests to the helper and the servers' files, messages from another instance,
 * the stored results of complete checks, the record of a restore point.
 */
// clang-format off
#define FUZZ_TARGETS(X) X(packages) X(control) X(distributions) X(reprepro) X(apt) X(externalrepos) \
    X(depends) X(versions) X(results) X(archive) X(deb) X(debcontrol) X(gzip) X(sources) X(signing) X(publication) \
    X(instance) X(checks) X(history)
// clang-format on

namespace FuzzTarget
{
using Function = void (*)(std::string_view input);

struct Target
{
    const char *name;
    Function function;
};

#define FUZZ_DECLARE(name) void name(std::string_view input);
FUZZ_TARGETS(FUZZ_DECLARE)
#define FUZZ_ENTRY(name) {#name, name},
inline constexpr Target All[] = {FUZZ_TARGETS(FUZZ_ENTRY)};
} // namespace FuzzTarget
