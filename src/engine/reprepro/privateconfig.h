// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/reprepro/leanenvironment.h"
#include "files/scratchfolder.h"

#include <QStringList>

#include <optional>

class ConfigFolder;

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

    /** `own` is the repository's. A `description` and `updates` (updates) replace the ones in that folder. */
    PrivateConfig(const ConfigFolder &own,
                  Unreferenced unreferenced,
                  const QByteArray &description = {},
                  const QByteArray &updates = {});

    /** False when the folder could not be made; then reprepro must export in each run. */
    bool isValid() const { return m_valid; }
    /** Variables to add to the environment of reprepro. */
    QStringList environment() const { return m_environment; }
    /** Makes further runs use the user's own PATH and keys. This is slower, but no program is missing. */
    void useWholeEnvironment();
    /**
     * Text of the private options file: the repository's own lines without those that we replace, and then our lines.
     */
    static QString optionsText(const QString &own, Unreferenced unreferenced);

private:
    ScratchFolder m_folder;
    std::optional<LeanEnvironment> m_lean;
    QStringList m_environment; ///< the configuration folder is the first entry
    bool m_valid = false;
};
