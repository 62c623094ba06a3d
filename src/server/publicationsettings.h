// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "server/sourceline.h"

#include <QList>
#include <QString>

#include <optional>

class QSettings;

/**
 * What is remembered of a published repository: one group of the settings for each port in the list of busy ports.
 * A stored value of another kind than expected counts as absent.
 */
struct PublicationSettings
{
    static constexpr int LowestPort = 1;
    static constexpr int HighestPort = 65535;

    int port = 0;
    QString repoPath;
    bool trusted = true;
    QString architectures; ///< separated by blanks
    int protocol = HttpProtocol;
    QString host; ///< empty when none was chosen

    /** The ports that are taken, each once, in the order in which they were. */
    static QList<int> busyPorts(const QSettings &settings);
    /** What is kept for this port. */
    static PublicationSettings load(const QSettings &settings, int port);
    /** What is kept for the repository in this directory: the first of the busy ports that is its own. */
    static std::optional<PublicationSettings> find(const QSettings &settings, const QString &repoPath);

    /** Takes the port, which must be a valid one, and keeps everything under it, whoever had it before. */
    void claim(QSettings &settings) const;
};
