// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "files/scratchfolder.h"

#include <QStringList>

/**
 * A configuration folder beside the repository's own that makes reprepro change the database and the pool without
 * writing the indices each time. It shows the same files through links, with an options file of its own, and is
 * handed to reprepro through its environment, so that command lines stay as they are.
 */
class PrivateConfig
{
public:
    /** What happens to a pool file that the database needs no more while the old indices may still name it. */
    enum Unreferenced { Keep, Delete };

    /**
     * `configFolder` is the repository's own, or the copy of it that was admitted. With a `description`, that one takes
     * the place of the one there.
     */
    PrivateConfig(const QString &configFolder, Unreferenced unreferenced, const QByteArray &description = {});

    /** False when the folder could not be made; reprepro must then export each time. */
    bool isValid() const { return m_valid; }
    /** What a run of reprepro gets on top of the environment. */
    QStringList environment() const { return m_environment; }
    /** From now on runs keep the user's own PATH and keys; slower, but nothing can be missing. */
    void useWholeEnvironment();
    /** True when the repository's own options ask to keep files that no index names. */
    static bool keepsUnreferencedFiles(const QString &configFolder);
    /** True when the repository's own options leave the indices alone. */
    static bool exportsNever(const QString &configFolder);

    /** Our options file: the repository's own lines without those that ours replace, then ours. */
    static QString optionsText(const QString &own, Unreferenced unreferenced);

private:
    ScratchFolder m_folder;
    QStringList m_environment; ///< the configuration folder first
    bool m_valid = false;
};
