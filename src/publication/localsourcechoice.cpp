// SPDX-License-Identifier: GPL-3.0-or-later
#include "publication/localsourcechoice.h"

#include "publication/publicationaddresses.h"
#include "server/sourcekey.h"

#include <algorithm>

namespace
{
/** The best publication for this machine's apt. HTTP goes first, because apt must be set up for FTP. */
std::optional<Publication> bestOf(const QVector<Publication> &publications)
{
    const auto best = std::min_element(publications.cbegin(),
                                       publications.cend(),
                                       [](const auto &a, const auto &b) { return a.protocol < b.protocol; });
    return best == publications.cend() ? std::nullopt : std::optional<Publication>(*best);
}
} // namespace

std::optional<LocalSourceChoice> LocalSourceChoice::of(const LocalSourceFacts &facts)
{
    LocalSourceChoice choice{facts.offered};
    SourceLine &line = choice.line;
    const bool isSigned = !facts.fingerprint.isEmpty();
    if (isSigned) {
        line.trusted = false;
        line.signedBy = SourceKey::file(facts.fingerprint);
    }
    if (facts.access.way != AptAccess::NoWay) {
        line.protocol = LocalDirectoryProtocol;
        line.directory = SourceLine::inLine(facts.directory);
        // Others can change a package after apt has checked it. A copy is safe: apt copies first and checks then.
        line.copied = facts.access.way == AptAccess::ByRoot || !facts.access.isGuarded;
        choice.risk = line.trusted && !facts.access.isGuarded ? OthersWrite : NoRisk;
        return choice;
    }
    if (const std::optional<Publication> served = bestOf(facts.publications)) {
        line.protocol = served->protocol;
        line.port = served->port();
        // Another machine may have any other address one day.
        line.host = PublicationAddresses::loopback();
    }
    if (line.protocol < 0 || (line.protocol == FtpProtocol && !facts.hasFtp))
        return std::nullopt;
    choice.risk = line.trusted ? OthersServe : NoRisk;
    return choice;
}
