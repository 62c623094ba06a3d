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
 * The stored choices for a published repository: one group of the settings for each port in the list of busy ports.
 * A stored value of a wrong kind counts as absent.
 *
 * The choices stay when a repository is unpublished. A port is released when its repository is published on another
 * port, when its repository is removed, or when another repository takes the port.
 */
struct PublicationSettings
{
    int port = 0;
    QString repoPath;
    bool trusted = true;
    QString architectures; ///< separated by blanks
    int protocol = HttpProtocol;
    QString host; ///< empty when no address was chosen

    /** The busy ports, each once, in the order in which they were taken. */
    static QList<int> busyPorts(const QSettings &settings);
    /** The directories of the repositories to which the busy ports belong. */
    static QHash<int, QString> keptPaths(const QSettings &settings);
    /** The stored choices for this port. */
    static PublicationSettings load(const QSettings &settings, int port);
    /**
     * The choices for the first busy port of the repository, whose directory has these spellings. The paths are
     * compared as texts, because a stored directory may lie on a disk that does not answer.
     */
    static std::optional<PublicationSettings> find(const QSettings &settings, const QStringList &spellings);
    /** The choices for this repository and this port. */
    static std::optional<PublicationSettings>
    find(const QSettings &settings, const QStringList &spellings, int port);

    /** Takes the port, which must be valid, and stores everything under it. An earlier owner loses the port. */
    void claim(QSettings &settings) const;
    /** Releases this repository's ports except those in `kept`, and deletes what was stored under them. */
    static void release(QSettings &settings, const QStringList &spellings, const QList<int> &kept = {});

    /**
     * Takes protocol and port of a publication of this repository: the system is right where the settings differ. A
     * running publication is preferred, then the publication that the settings name, then the first one. False when
     * the repository is not published. The paths must be canonical.
     */
    bool applyLive(const QVector<Publication> &publications);

private:
    static void storePorts(QSettings &settings, const QList<int> &ports);
};
