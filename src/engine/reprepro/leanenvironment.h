// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "files/scratchfolder.h"

#include <QStringList>

/**
 * An environment that avoids the start of five programs in each run of reprepro. It looks for a working gpg even when
 * it does not sign, and its library also runs gpgconf, gpgsm and others when they are on PATH. So PATH contains only
 * gpg and the programs for unpacking, and GNUPGHOME has no keys, so that no agent is started. Not for runs that sign,
 * or start programs of the administrator; see ConfigFolder.
 */
class LeanEnvironment
{
public:
    LeanEnvironment();

    /** Variables to add to the environment of reprepro; none when the folder for them could not be made. */
    QStringList variables() const { return m_variables; }

private:
    ScratchFolder m_folder;
    QStringList m_variables;
};
