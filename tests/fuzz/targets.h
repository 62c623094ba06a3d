// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

/**
 * The readers of outside text, each with the rules that hold whatever it is given. A target throws Fuzzing::Broken when
 * one does not. Inputs are kept in corpus/, one folder for each target:
 * an index of packages, what dpkg -I prints, conf/distributions and conf/options, what goes into and comes out of
 * reprepro, what apt and apt-cache print, sources as users and files have them, a Depends field, two versions, the
 * stored results of dependency checks, a tar archive, a package file, what is written to a compressed archive, source
 * lines and the file of those, what gpg prints, what the helper is asked and the servers' files, what comes from another
 * start of the program.
 */
// clang-format off
#define FUZZ_TARGETS(X) X(packages) X(control) X(distributions) X(reprepro) X(apt) X(externalrepos) \
    X(depends) X(versions) X(results) X(archive) X(deb) X(gzip) X(sources) X(signing) X(publication) \
    X(instance)
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
