// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>

/**
 * What the configuration of a repository has reprepro run, or write outside of the repository, by reprepro(1). All that
 * is not known to be harmless counts, so that a new kind of hook is no gap.
 *
 * These are the files options and distributions. The other ones (updates, pulls, incoming) are opened by commands that
 * this program never gives: strace shows it.
 */
class ConfiguredPrograms
{
public:
    /** What stands in front of a path below the repository. */
    static const QByteArray BelowRepository;

    /** Adds what conf/options names. */
    void readOptions(const QByteArray &text);
    /** Adds what conf/distributions names. */
    void readDistributions(const QByteArray &text);

    /** To be shown and compared: a line each, with the name of its file in front. */
    const QStringList &lines() const { return m_lines; }
    /** The words of these lines that can be names of files in the configuration folder, or BelowRepository. */
    const QList<QByteArray> &words() const { return m_words; }
    /** Names of the folders right below the repository that options put in the place of the usual ones. */
    const QList<QByteArray> &folders() const { return m_folders; }

private:
    QStringList m_lines;
    QList<QByteArray> m_words;
    QList<QByteArray> m_folders;

    void readField(const QByteArray &name, const QList<QByteArray> &lines);
    void addLine(const char *file, const QByteArray &line);
};
