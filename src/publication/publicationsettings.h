// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "server/publication.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

class QSettings;

/**
 * What is remembered of a published repository: one group of the settings for each port in the list of busy ports.
 * A stored value of another kind than expected counts as absent.
 *
 * What was chosen stays for the next time when a repository is unpublished. A port is given up when its repository is
 * published on another one instead, when it is removed, or when another repository takes the port.
 */
struct PublicationSettings
{
    int port = 0;
    QString repoPath;
    bool trusted = true;
    QString architectures; ///< separated by blanks
    int protocol = HttpProtocol;
    QString host; ///< empty when none was chosen

    /** The ports that are taken, each once, in the order in which they were. */
    static QList<int> busyPorts(const QSettings &settings);
    /** The directories of the repositories that the taken ports are kept for. */
    static QHash<int, QString> keptPaths(const QSettings &settings);
    /** What is kept for this port. */
    static PublicationSettings load(const QSettings &settings, int port);
    /**
     * What is kept for the repository whose directory has these spellings: the first of the busy ports that is its
     * own. They are compared as texts, since a directory that is kept may lie on a disk that does not answer.
     */
    static std::optional<PublicationSettings> find(const QSettings &settings, const QStringList &spellings);
    /** What is kept for it under this port. */
    static std::optional<PublicationSettings>
    find(const QSettings &settings, const QStringList &spellings, int port);

    /** Takes the port, which must be a valid one, and keeps everything under it, whoever had it before. */
    void claim(QSettings &settings) const;
    /** Gives up this repository's ports but those in `kept`, and forgets what was kept under them. */
    static void release(QSettings &settings, const QStringList &spellings, const QList<int> &kept = {});

    /**
     * Takes protocol and port of a publication of this repository: where the system and the settings disagree, the
     * system is right. One that runs goes before one that does not, then the one that is named here already, then the
     * first. False when it is not published. The paths must be canonical.
     */
    bool applyLive(const QVector<Publication> &publications);

private:
    static void storePorts(QSettings &settings, const QList<int> &ports);
};
