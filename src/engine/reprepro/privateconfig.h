// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "files/scratchfolder.h"

#include <QStringList>

/**
 * A private configuration folder with which reprepro changes the database and the pool, but does not write the indices
 * each time. It contains links to the files of the repository's own folder, and an options file of its own. reprepro
 * gets the folder through its environment, so command lines stay the same.
 */
class PrivateConfig
{
public:
    /** What happens to a pool file that the database no longer needs while old indices may still name it. */
    enum Unreferenced { Keep, Delete };

    /**
     * `configFolder` is the repository's own folder, or its admitted copy. A `description` replaces the one in that
     * folder.
     */
    PrivateConfig(const QString &configFolder, Unreferenced unreferenced, const QByteArray &description = {});

    /** False when the folder could not be made; then reprepro must export in each run. */
    bool isValid() const { return m_valid; }
    /** Variables to add to the environment of reprepro. */
    QStringList environment() const { return m_environment; }
    /** Makes further runs use the user's own PATH and keys. This is slower, but no program is missing. */
    void useWholeEnvironment();
    /** True when the repository's own options keep files that no index names. */
    static bool keepsUnreferencedFiles(const QString &configFolder);
    /** True when the repository's own options never export the indices. */
    static bool exportsNever(const QString &configFolder);

    /**
     * Text of the private options file: the repository's own lines without those that we replace, and then our lines.
     */
    static QString optionsText(const QString &own, Unreferenced unreferenced);

private:
    ScratchFolder m_folder;
    QStringList m_environment; ///< the configuration folder is the first entry
    bool m_valid = false;
};
