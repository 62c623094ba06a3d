// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

/**
 * What the files of a repository's configuration folder have reprepro do besides the work that it is asked for. They
 * are read at each question, because a job can change them.
 */
class ConfigFolder
{
public:
    /** `path` is the folder conf of the repository, or its admitted copy. */
    explicit ConfigFolder(QString path);

    QString path() const { return m_path; }
    /** The text of the file "options", with a line feed at its end; null when the file exists but cannot be read. */
    QString options() const;
    /** The bytes of the description (distributions); nothing when they cannot be read. */
    std::optional<QByteArray> description() const;
    /** The name of the option in a line of that file, without dashes. */
    static QString optionName(const QString &line);

    /** Whether files stay in the pool that no index names. */
    bool keepsUnreferencedFiles() const;
    /** Whether no run writes the indices. */
    bool exportsNever() const;
    /** Whether the repository is signed; true also when the description cannot be read. */
    bool signs() const;
    /**
     * Whether programs of the administrator run after changes; they may need the whole environment. True also when the
     * files cannot be read.
     */
    bool runsPrograms() const;
    /** The same for runs that write the indices, for which programs can be named too. */
    bool runsProgramsForIndices() const;

private:
    QString m_path;

    QStringList optionLines() const;
    bool hasField(const QString &field) const;
};
