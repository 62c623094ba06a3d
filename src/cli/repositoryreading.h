// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/repoinfo.h"

#include <QList>
#include <QString>

#include <optional>

class Console;
struct Invocation;

/** A repository for the commands that only read: without a job, and whatever another job does. */
struct RepositoryReading
{
    QString path;
    RepoInfo info;
    QList<PackageInfoPtr> packages;

    /** Nothing when it cannot be read, which has been told. */
    static std::optional<RepositoryReading> of(const QString &path, Console &console);
    /** Says so when what is listed may not be what the database holds. */
    static void tellOfOldIndices(const QString &path, Console &console);
};

/** The packages with these names or NAME=VERSION, and the options --arch and --component. */
class PackageSelection
{
public:
    enum Words {
        Names, ///< for commands that change packages
        Patterns ///< as in a shell
    };
    PackageSelection(const QStringList &words, Words kind, const Invocation &invocation);

    /** Without words every package matches. */
    QList<PackageInfoPtr> of(const QList<PackageInfoPtr> &packages) const;
    /** The words that match none of the packages. */
    QStringList unmatched(const QList<PackageInfoPtr> &packages) const;
    /** The same, which are told as errors. */
    QStringList tellUnmatched(const QList<PackageInfoPtr> &packages, Console &console) const;

private:
    QStringList m_words;
    Words m_kind;
    QString m_architecture;
    QString m_component;

    bool isInPlace(const PackageInfo &package) const;
    bool matches(const QString &word, const PackageInfo &package) const;
};
