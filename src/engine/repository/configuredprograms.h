// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>

/**
 * The programs that reprepro runs and the files that it writes outside of the repository, according to the repository's
 * configuration (reprepro(1)). Everything that is not known to be harmless is included, so that an unknown kind of hook
 * is included too.
 *
 * Only the files options and distributions are read. The other files (updates, pulls, incoming) are used by commands
 * that this program never calls, as strace shows.
 */
class ConfiguredPrograms
{
public:
    /** The prefix of a path below the repository. */
    static const QByteArray BelowRepository;

    /** Adds the entries of conf/options. */
    void readOptions(const QByteArray &text);
    /** Adds the entries of conf/distributions. */
    void readDistributions(const QByteArray &text);

    /** The entries for display and comparison, one on each line, after the name of their file. */
    const QStringList &lines() const { return m_lines; }
    /** The words in these lines that can be file names in the configuration folder or below the repository. */
    const QList<QByteArray> &words() const { return m_words; }
    /** Names of the folders directly below the repository that options use instead of the usual ones. */
    const QList<QByteArray> &folders() const { return m_folders; }

private:
    QStringList m_lines;
    QList<QByteArray> m_words;
    QList<QByteArray> m_folders;

    void readField(const QByteArray &name, const QList<QByteArray> &lines);
    void addLine(const char *file, const QByteArray &line);
};
