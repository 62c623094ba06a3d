// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

/**
 * The readers of outside text, each with the rules that hold whatever it is given. A target throws Fuzzing::Broken when
 * one does not. Inputs are kept in corpus/, one folder for each target.
 */
namespace FuzzTarget
{
using Function = void (*)(std::string_view input);

void packages(std::string_view input); ///< an index of packages
void control(std::string_view input); ///< what dpkg -I prints
void distributions(std::string_view input); ///< conf/distributions and conf/options
void reprepro(std::string_view input); ///< what goes into and comes out of reprepro
void apt(std::string_view input); ///< what apt and apt-cache print
void externalrepos(std::string_view input); ///< sources as users and files have them
void depends(std::string_view input); ///< a Depends field
void versions(std::string_view input); ///< two versions
void results(std::string_view input); ///< the stored results of dependency checks
void archive(std::string_view input); ///< a tar archive
void deb(std::string_view input); ///< a package file
void gzip(std::string_view input); ///< what is written to a compressed archive
void sources(std::string_view input); ///< source lines and the file of those
void signing(std::string_view input); ///< what gpg prints
void publication(std::string_view input); ///< what the helper is asked, and the servers' files

struct Target
{
    const char *name;
    Function function;
};

inline constexpr Target All[] = {
    {"packages", packages},
    {"control", control},
    {"distributions", distributions},
    {"reprepro", reprepro},
    {"apt", apt},
    {"externalrepos", externalrepos},
    {"depends", depends},
    {"versions", versions},
    {"results", results},
    {"archive", archive},
    {"deb", deb},
    {"gzip", gzip},
    {"sources", sources},
    {"signing", signing},
    {"publication", publication},
};
} // namespace FuzzTarget
