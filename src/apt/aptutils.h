// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/aptcommands.h"
#include "apt/aptoutput.h"
#include "core/processutils.h"

#include <QSharedPointer>
#include <QTemporaryFile>

/**
 * Asks apt about the packages of public repositories, from the system's sources or from a private list. Every call runs
 * the tool again and waits for its end. A query that fails emits error() with the tool's message and returns nothing.
 * The same happens when apt would not read a name as the name of one package.
 */
class AptUtils : public ProcessUtils
{
    Q_OBJECT
public:
    explicit AptUtils(QObject *parent = nullptr);

    /**
     * Makes the queries read a list of these sources instead of the system's main list. Each source consists of URI,
     * suite and components. The folder with further lists is still read. When the list cannot be written, the system's
     * sources are used, and the return value is false. The search and the download do not use the list.
     */
    bool setPrivateSources(const QStringList &sources);
    /** Path of the private list; empty without one. */
    QString privateSourcesFile() const;

    /** Text for the user when apt has no list of any source. */
    static QString noSourcesText();
    /** Text for the user when apt does not know the architectures of some packages. */
    static QString unknownArchitecturesText(const QStringList &architectures);
    /** The shell commands that add these architectures to apt. */
    static QString architectureCommands(const QStringList &architectures);

    /** The sources that apt knows, in the form after "deb " in a sources list. */
    QStringList sourcesFromPolicy(SourceGrouping grouping = SourceGrouping::BySuite);

    /** The versions of a package and the origins of each, see AptOutput::versions(). */
    QMap<QString, QStringList> packageVersions(const QString &name, const QString &architecture);

    /** One record for each version and origin of a package. */
    QVector<AptPackageRecord> packageRecords(const QString &name);

    /**
     * The same for many packages in one run, in their order. Each is a name or name:architecture. Unknown names are
     * skipped. An error is reported only when nothing could be read. One run can take some hundreds of names.
     */
    QVector<AptPackageRecord> packageRecords(const QStringList &names);

    /**
     * The paragraphs of many packages as the sources' indices have them, one behind the other, each with an empty line
     * behind it. Each name is a name or name:architecture; all versions come, also that of the installed package.
     */
    QString packageParagraphs(const QStringList &names);

    /** The packages that provide a name, in any of their versions. */
    QStringList providers(const QString &name);

    /** The packages whose names begin with `prefix`; takes seconds, and never emits an error. */
    QStringList searchByPrefix(const QString &prefix);

    /**
     * Downloads packages into `folder`, which is empty, with one run. The paths are in the order of the packages, and
     * empty for those that have not come. There is no error for them: download() tells the reason for each.
     */
    QStringList downloadTogether(const QVector<AptDownload> &packages, const QString &folder);

    /** Downloads a package into `folder`. Returns the absolute path of the file; empty when the download failed. */
    QString
    download(const QString &name, const QString &version, const QString &architecture, const QString &folder);

private:
    /** Those of these files of a failed run that are whole: apt leaves the others where they are. */
    QStringList
    wholeFiles(const QStringList &files, const QVector<AptDownload> &packages, const QString &folder);
    /** Calls run() and reports a failure with the text `failure`. */
    bool ask(const QString &program,
             const QStringList &arguments,
             const QString &workingDirectory,
             const QString &failure);
    /** Whether apt may be asked for the name; if not, reports it with the text `failure`. */
    bool acceptName(const QString &name, const QString &failure);
    bool acceptArchitecture(const QString &architecture, const QString &failure);

    QString m_workingDirectory; ///< working directory of the program at construction
    QSharedPointer<QTemporaryFile> m_privateSources; ///< deleted with the last copy of this pointer
};
