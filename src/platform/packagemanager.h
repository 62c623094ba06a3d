// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>

class QObject;

namespace VeltAdmin
{
/** The packages of the system: which are installed, and the graphical program for installing more. */
class PackageManager
{
public:
    using Answer = std::function<void(bool isInstalled)>;

    /**
     * Whether the package database lists `package` as installed. False also for an invalid package name, or when the
     * database cannot be read. Runs a program for some tens of milliseconds: not for the interface thread.
     */
    static bool isPackageInstalled(const QString &package);
    /**
     * The same without waiting: `answer` is called later, on the thread of `context`, which must be the calling thread,
     * unless `context` is deleted first.
     */
    static void isPackageInstalled(const QString &package, QObject *context, const Answer &answer);
    /** Whether the listing of the package database ("dpkg -l") has `package` as installed. */
    static bool listsAsInstalled(const QString &listing, const QString &package);

    /**
     * Opens the graphical package manager with `package` marked for installation, and returns at once. With
     * `refreshLists` it fetches the package lists first. The user confirms the installation there. False when the
     * program is not installed or cannot be started.
     */
    static bool runSynapticWithPackageSelected(const QString &package, bool refreshLists);
};
} // namespace VeltAdmin
