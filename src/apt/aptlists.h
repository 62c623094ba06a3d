// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/candidatesource.h"
#include "core/controltext.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <utility>

/** A list of packages that apt has fetched. */
struct AptList
{
    QString origin; ///< of its source: URI, suite and architecture, as AptOutput::origin() tells it
    QString architecture; ///< whose packages it lists, those for "all" among them; empty: of any
    QString fileName; ///< absolute path; the file can be compressed
    QString source
        = {}; ///< its part of the source: URI, suite and component, with the architecture as an option

    /** The name, size and time of the file, which change with its contents. */
    QByteArray stamp() const;
    /** The paragraphs of the list, which share one block of bytes. Sets `problem` when the file cannot be read. */
    QVector<ControlText> read(QString *problem) const;
};

/**
 * The lists of packages that apt has fetched, from their files: to read all of them takes a fifth of the time in which
 * apt prints them. Every function reads files or runs apt: not for the interface thread.
 */
class AptLists
{
public:
    /** The lists of the system. */
    AptLists() = default;
    /** The lists of an apt with this environment, in a folder; its sources do not change. See PrivateApt::lists(). */
    AptLists(QStringList environment, QString folder)
        : m_environment(std::move(environment))
        , m_folder(std::move(folder))
    { }

    /** Finds the lists; false when apt could not be asked. Sources that have no list yet are left out. */
    bool find(const StopRequest &stopped = {});

    const QVector<AptList> &lists() const { return m_lists; }
    /** The architectures for which the apt of the system fetches lists. */
    QStringList architectures() const { return m_architectures; }
    QString errorDetail() const { return m_errorDetail; } ///< the error output of apt, after a failure

private:
    QStringList m_environment;
    QString m_folder; ///< empty: apt has to be asked
    QStringList m_targets; ///< lines about the lists that the sources can have
    QVector<AptList> m_lists;
    QStringList m_architectures;
    QString m_errorDetail;

    /** Asks for what is known of a private apt. */
    bool findFolder(const StopRequest &stopped);
    bool findTargets(const StopRequest &stopped);
    bool
    run(const QString &program, const QStringList &arguments, const StopRequest &stopped, QString &output);
};
