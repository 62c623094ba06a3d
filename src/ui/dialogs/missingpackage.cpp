// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/missingpackage.h"

#include "platform/packagemanager.h"
#include "ui/dialogs/prompts.h"

#include <QCoreApplication>
#include <QPointer>
#include <QWidget>

namespace
{
class MissingPackage
{
    Q_DECLARE_TR_FUNCTIONS(MissingPackage)
};
} // namespace

void offerMissingPackage(Prompts &prompts, const QString &package, QWidget *parent)
{
    const QPointer<QWidget> stillThere(parent);
    const QString question
        = MissingPackage::tr("Package %1 is not installed! Do you want to install it?").arg(package);
    if (prompts.askAfterFailure(MissingPackage::tr("Error"), question, parent) != Prompts::Answer::Yes)
        return;
    const bool refreshLists = false;
    if (!VeltAdmin::PackageManager::runSynapticWithPackageSelected(package, refreshLists))
        prompts.warn(
            MissingPackage::tr("Error"),
            MissingPackage::tr("The package manager synaptic cannot be started. Install the package %1 in "
                               "another way.")
                .arg(package),
            stillThere);
}

void warnNotStarted(Prompts &prompts, const QString &program, QWidget *parent)
{
    prompts.warn(MissingPackage::tr("Error"),
                 MissingPackage::tr("The program %1 cannot be started.").arg(program),
                 parent);
}
