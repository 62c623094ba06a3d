// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/reposhell.h"

#include <QObject>
#include <QStringList>
#include <QTemporaryDir>
#include <QVector>

#include <functional>

/**
 * An engine with an interface that notes everything and answers questions as told. Its jobs run on real repositories
 * below a temporary folder.
 */
class EngineHarness : public QObject
{
    Q_OBJECT
public:
    explicit EngineHarness(const QString &codename = QStringLiteral("dogwood"));

    struct Finish
    {
        RepoEnums::JobId job;
        QString message;
    };

    RepoShell shell;
    QTemporaryDir folder{QStringLiteral("/tmp/veXXXXXX")};

    QStringList started;
    QVector<Finish> finished;
    QStringList criticals; ///< "text|details"
    QStringList questions; ///< "title|text"
    QVector<int> ranges;
    QVector<int> steps;
    QStringList events; ///< "+name version arch", "-…", "~…" for added, removed, changed, and "saved n"
    QVector<RepoEnums::ErrorCode> collisions;
    QVector<bool> singles;

    std::function<bool(const QString &text)> answer = [](const QString &) { return false; };
    std::function<quint32(RepoEnums::ErrorCode)> resolve
        = [](RepoEnums::ErrorCode) { return PackageReplacementRules::KeepThis; };

    QString repoPath() const { return folder.filePath(QStringLiteral("repo")); }
    QString debs() const { return folder.filePath(QStringLiteral("debs")); }
    RepoInfo info;

    /** Creates the repository; fails the test program when that does not work. */
    void create();
    /** Runs `start` and returns when its job has ended; forgets what was noted before. */
    int run(const std::function<void()> &start);
    void clear();
    QString lastMessage() const { return finished.isEmpty() ? QString() : finished.last().message; }
    /** The package records as "name version component architecture", sorted. */
    QStringList listed() const;
    /** What reprepro itself says is in the repository, as it prints it, sorted. */
    QStringList inDatabase(const QString &path = QString()) const;
    /** What the indices below dists say, as listed(), from a fresh look. */
    QStringList inIndices() const;
    PackageInfoPtr find(const QString &name, const QString &architecture = QString()) const;
};
