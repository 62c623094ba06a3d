// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/preview/descriptioneffect.h"

#include "engine/preview/changepreview.h"
#include "engine/repository/distributions.h"

#include <algorithm>
#include <iterator>

namespace
{
QString listed(const QStringList &words)
{
    return words.join(QLatin1String(", "));
}

QStringList without(const QStringList &list, const QStringList &others)
{
    QStringList left;
    std::copy_if(list.cbegin(), list.cend(), std::back_inserter(left), [&](const QString &entry) {
        return !others.contains(entry);
    });
    return left;
}
} // namespace

void DescriptionEffect::fill(PreviewEffect *effect, const Change &change)
{
    const RepoInfo &before = change.change.before;
    const RepoInfo &after = change.change.after;
    QStringList &does = effect->description;
    QStringList &clients = effect->clients;
    does.clear();
    clients.clear();
    const bool isMoving = change.oldPath != change.newPath;
    if (isMoving)
        does << tr("The repository moves from %1 to %2.").arg(change.oldPath, change.newPath);
    if (change.change.isRenaming())
        does << tr("The indices are written below dists/%1, and dists/%2 is deleted.")
                    .arg(after.codename, before.codename);
    else if (before != after)
        does << tr("All indices below dists/%1 are written anew.").arg(after.codename);
    const auto tellParts
        = [&does](const QStringList &gone, const QStringList &come, auto goneText, auto comeText) {
              if (!gone.isEmpty())
                  does << goneText(listed(gone));
              if (!come.isEmpty())
                  does << comeText(listed(come));
          };
    tellParts(
        without(before.componentList(), after.componentList()),
        without(after.componentList(), before.componentList()),
        [](const QString &parts) {
            return tr("The indices of these components are deleted: %1.").arg(parts);
        },
        [](const QString &parts) { return tr("Indices of these components are added: %1.").arg(parts); });
    tellParts(
        without(before.binaryArchitectures(), after.binaryArchitectures()),
        without(after.binaryArchitectures(), before.binaryArchitectures()),
        [](const QString &parts) {
            return tr("The indices of these architectures are deleted: %1.").arg(parts);
        },
        [](const QString &parts) { return tr("Indices of these architectures are added: %1.").arg(parts); });
    if (before.contents != after.contents)
        does << (after.contents ? tr("The lists of the packages' files (Contents) are added.")
                                : tr("The lists of the packages' files (Contents) are deleted."));
    else if (before.contentsChoices != after.contentsChoices)
        does << tr("The lists of the packages' files (Contents) are written in another form.");
    const QStringList lost = Distributions::lostLines(change.text, after);
    if (!lost.isEmpty())
        does << tr("These lines of the description are lost, and the file with them is kept as %1: %2")
                    .arg(change.keptAs, listed(lost));

    // apt keeps what it knows of a repository, and asks before it believes that this has changed.
    QStringList changed;
    const auto compare = [&changed](const QString &field, const QString &old, const QString &now) {
        if (old != now)
            changed << QStringLiteral("%1 (%2 → %3)").arg(field, old, now);
    };
    compare(DistributionField::Origin, before.origin, after.origin);
    compare(DistributionField::Label, before.label, after.label);
    if (change.change.isRenaming()) {
        clients << tr("In the line of the source on each client, %1 must be replaced with %2.")
                       .arg(before.codename, after.codename);
    } else if (!changed.isEmpty()) {
        clients << tr("apt on the clients refuses to update until the change of %1 is accepted. This command "
                      "accepts it: %2")
                       .arg(listed(changed), acceptingCommand());
    } else if (before.suite != after.suite) {
        clients << tr("apt on the clients tells of the change of Suite from %1 to %2, and old versions of "
                      "apt refuse "
                      "it. This command accepts it: %3")
                       .arg(before.suite, after.suite, acceptingCommand());
    }
    if (isMoving)
        clients << tr("Clients that use the folder itself need the new path in the line of the source.");
    const QStringList gone = without(before.componentList(), after.componentList());
    if (!gone.isEmpty())
        clients
            << tr("Clients must take these components out of the line of the source: %1.").arg(listed(gone));
    const QStringList goneArchitectures = without(before.binaryArchitectures(), after.binaryArchitectures());
    if (!goneArchitectures.isEmpty())
        clients << tr("Clients of these architectures get nothing from the repository any more: %1.")
                       .arg(listed(goneArchitectures));
    if (after.validFor > 0 && before.validFor != after.validFor)
        clients << tr(
            "apt on the clients refuses indices that are older than %n day(s), so the repository must be "
            "exported again before that.",
            nullptr,
            after.validFor);
    const auto signer = [](const QString &text) {
        const QString value = Distributions::wholeValue(text, DistributionField::SignWith);
        return value == QLatin1String("default") ? QStringLiteral("yes") : value;
    };
    const QString oldSigner = signer(change.text.isEmpty() ? Distributions::text(before) : change.text);
    const QString newSigner = signer(Distributions::text(after));
    if (!oldSigner.isEmpty() && newSigner.isEmpty())
        clients << tr(
            "The repository is not signed any more: apt refuses it unless the line of the source has "
            "[trusted=yes].");
    if (oldSigner.isEmpty() && !newSigner.isEmpty())
        clients << tr("The repository is signed from then on: clients need the public key to check that.");
    else if (!newSigner.isEmpty() && oldSigner.compare(newSigner, Qt::CaseInsensitive) != 0)
        clients << tr("The repository is signed with another key from then on: apt on the clients refuses it "
                      "until they "
                      "have the public part of that key.");
}
