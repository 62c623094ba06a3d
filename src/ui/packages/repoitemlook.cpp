// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/packages/repoitemlook.h"

#include "platform/ui/velticon.h"

#include <QApplication>
#include <QStringList>

namespace
{
/** Packages that can be installed have no sign: they are what a user expects. */
VeltIcon::Emblem emblemOf(Installability installability, bool isStale)
{
    switch (installability) {
    case NotInstallable:
        return {QStringLiteral("velt-not-installable"), isStale};
    case InstallabilityUndecided:
        return {QStringLiteral("velt-install-undecided"), isStale};
    default:
        return {};
    }
}
} // namespace

QIcon RepoItemLook::icon(const RepoItem &item, bool isStale)
{
    const VeltIcon::Emblem emblem = emblemOf(item.installability(), isStale);
    QString base = QStringLiteral("folder");
    if (!item.isContainer())
        base = item.package->isSigned() ? QStringLiteral("signed-package") : QStringLiteral("synaptic");
    switch (item.dependState()) {
    case DependUndefined:
        return VeltIcon::withOverlay(base, QStringLiteral("dialog-question"), emblem);
    case DependError:
        return VeltIcon::withOverlay(base, QStringLiteral("dialog-close"), emblem);
    case DependSuccess:
        return VeltIcon::withOverlay(base, QStringLiteral("dialog-ok-apply"), emblem);
    default:
        return VeltIcon::withOverlay(base, QString(), emblem);
    }
}

QFont RepoItemLook::topFont()
{
    QFont font = QApplication::font("QTreeView");
    font.setWeight(QFont::Bold);
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() + 1);
    else
        font.setPixelSize(font.pixelSize() + 1);
    return font;
}

QString RepoItemLook::installability(const RepoItem &item, bool breaksOthers, bool isStale)
{
    QStringList texts;
    if (item.isContainer()) {
        if (item.notInstallable > 0)
            texts << tr("%n package(s) cannot be installed.", nullptr, item.notInstallable);
        if (item.undecided > 0)
            texts << tr("%n package(s) undecided: the search took too long.", nullptr, item.undecided);
    } else {
        switch (item.installability()) {
        case NotInstallable:
            texts << tr("Cannot be installed.");
            break;
        case Installable:
            texts << tr("Can be installed.");
            break;
        case InstallabilityUndecided:
            texts << tr("Undecided: the search took too long.");
            break;
        default:
            break;
        }
        if (breaksOthers)
            texts << tr("Breaks other packages.");
    }
    if (!texts.isEmpty() && isStale)
        texts << tr("Packages have changed since the check.");
    return texts.join(QLatin1Char(' '));
}
