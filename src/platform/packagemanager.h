// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>

class QObject;

namespace VeltAdmin
{
/** The system's own packages: what is installed, and the graphical program with which the user installs more. */
class PackageManager
{
public:
    using Answer = std::function<void(bool isInstalled)>;

    /**
     * Whether the package database lists `package` as installed. False as well for what is no package name, and when
     * the database cannot be asked. Runs a program for some tens of milliseconds: not for the interface thread.
     */
    static bool isPackageInstalled(const QString &package);
    /**
     * The same without waiting: `answer` is called later, on the thread of `context` (which must be the calling
     * one) and as long as `context` lives.
     */
    static void isPackageInstalled(const QString &package, QObject *context, const Answer &answer);
    /** What isPackageInstalled() reads out of the listing of the package database ("dpkg -l"). */
    static bool listsAsInstalled(const QString &listing, const QString &package);

    /**
     * Opens the graphical package manager with `package` marked for installation, and returns at once; with
     * `refreshLists` it fetches the package lists first. The user confirms everything in there. False when it is not
     * on this system or cannot be started.
     */
    static bool runSynapticWithPackageSelected(const QString &package, bool refreshLists);
};
} // namespace VeltAdmin
