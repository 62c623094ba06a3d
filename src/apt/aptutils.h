// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/aptoutput.h"
#include "core/processutils.h"

#include <QSharedPointer>
#include <QTemporaryFile>

/**
 * Asks apt about the packages of public repositories: those of the system's sources, or of a private list. Every call
 * runs the tool again and blocks until it has ended. A query that fails emits error() with what the tool said, and
 * returns nothing; so does one for a name that apt would not read as the name of one package.
 */
class AptUtils : public ProcessUtils
{
    Q_OBJECT
public:
    explicit AptUtils(QObject *parent = nullptr);

    /**
     * Makes the queries read a list of these sources, each written as URI, suite and components, instead of the
     * system's main list. The folder of further lists stays in force. When the list cannot be written the system's
     * sources are asked, and the return value is false. The search and the download do not use the list.
     */
    bool setPrivateSources(const QStringList &sources);
    /** Path of the private list; empty without one. */
    QString privateSourcesFile() const;

    /** For the user, when apt has no list of any source. */
    static QString noSourcesText();
    /** For the user, when packages for architectures were asked for that apt does not know. */
    static QString unknownArchitecturesText(const QStringList &architectures);
    /** The commands that make apt know them, as one would type them. */
    static QString architectureCommands(const QStringList &architectures);

    /** The sources apt knows, as they follow "deb " in a sources list. */
    QStringList sourcesFromPolicy(SourceGrouping grouping = SourceGrouping::BySuite);

    /** The versions of a package and the origins of each, see AptOutput::versions(). */
    QMap<QString, QStringList> packageVersions(const QString &name, const QString &architecture);

    /** One record for each version and origin of a package. */
    QVector<AptPackageRecord> packageRecords(const QString &name);

    /**
     * The same for many packages in one run, in their order, each written as a name or as name:architecture. Names that
     * apt does not know are passed over; an error is told only when nothing could be read. Some hundreds of names fit
     * into a run.
     */
    QVector<AptPackageRecord> packageRecords(const QStringList &names);

    /** The packages that provide a name, of any version of theirs. */
    QStringList providers(const QString &name);

    /** The packages whose names begin with `prefix`; takes seconds, and never emits an error. */
    QStringList searchByPrefix(const QString &prefix);

    /** Fetches a package into `folder`; returns the absolute path of the file, empty when none has come. */
    QString
    download(const QString &name, const QString &version, const QString &architecture, const QString &folder);

private:
    /** As run(), and tells of a failure with `failure` as its text. */
    bool ask(const QString &program,
             const QStringList &arguments,
             const QString &workingDirectory,
             const QString &failure);
    /** Whether the name may be asked for; if not, tells so with `failure` as the text. */
    bool acceptName(const QString &name, const QString &failure);
    bool acceptArchitecture(const QString &architecture, const QString &failure);

    QString m_workingDirectory; ///< ours at the time of construction
    QSharedPointer<QTemporaryFile> m_privateSources; ///< the list lives as long as this
};
