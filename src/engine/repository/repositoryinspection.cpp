// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/repository/repositoryinspection.h"

#include "engine/repository/configuredprograms.h"
#include "files/openfolder.h"
#include "files/scratchfolder.h"
#include "files/wholefile.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>

#include <algorithm>
#include <utility>

#include <unistd.h>

namespace
{
constexpr qint64 LargestFile = 16 << 20;
constexpr qint64 LargestCopy = 64 << 20;
constexpr int MostFiles = 2000;
constexpr int DeepestFolder = 12; ///< the folder of a component and an architecture is the deepest

const QByteArray OptionsFile("options");
const QByteArray DistributionsFile("distributions");

/** Whether only the user and root can change the file or folder. */
bool isTrusted(const std::optional<struct stat> &status)
{
    if (!status || (status->st_uid != ::geteuid() && status->st_uid != 0))
        return false;
    // In a folder that everybody may write, the sticky bit protects other users' files.
    const bool isOpenToAll = (status->st_mode & S_IWOTH) != 0;
    return !isOpenToAll || (S_ISDIR(status->st_mode) && (status->st_mode & S_ISVTX) != 0);
}

QString identityIn(const OpenFolder &repository)
{
    const auto status = repository.status();
    return status ? QStringLiteral("%1-%2").arg(status->st_dev).arg(status->st_ino) : QString();
}

/** Copies regular files, with their permission to be executed, and the folders that contain them. */
class FolderCopy
{
public:
    bool copy(const OpenFolder &source, const QString &target, int depth = 0)
    {
        if (depth > DeepestFolder)
            return false;
        const QList<QByteArray> names = source.names();
        return std::all_of(names.cbegin(), names.cend(), [&](const QByteArray &name) {
            return copyEntry(source, name, target + QLatin1Char('/') + QFile::decodeName(name), depth);
        });
    }

private:
    qint64 m_bytes = 0;
    int m_files = 0;

    bool copyEntry(const OpenFolder &source, const QByteArray &name, const QString &target, int depth)
    {
        if (++m_files > MostFiles)
            return false;
        if (const OpenFolder folder = source.folder(name); folder.isOpen())
            return QDir().mkdir(target) && copy(folder, target, depth + 1);
        // A link, a pipe or an unreadable file is not copied. reprepro reports it if it needs the file.
        const auto file = source.read(name, LargestFile);
        if (!file)
            return true;
        m_bytes += file->contents.size();
        QFile copied(target);
        if (m_bytes > LargestCopy || !copied.open(QIODevice::WriteOnly | QIODevice::NewOnly)
            || !WholeFile::writeOut(copied, file->contents))
            return false;
        QFileDevice::Permissions permissions = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
        if ((file->status.st_mode & (S_IXUSR | S_IXGRP | S_IXOTH)) != 0)
            permissions |= QFileDevice::ExeOwner;
        return copied.setPermissions(permissions);
    }
};

/** One inspection of a repository. */
class Inspector
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    explicit Inspector(const QString &repoPath)
        : m_path(repoPath)
        , m_repository(repoPath)
    { }

    RepositoryInspection inspect()
    {
        m_result.configFolder = m_path + QLatin1String("/conf");
        m_result.identity = identityIn(m_repository);
        if (!m_repository.isOpen()) {
            m_result.refusal = tr("The folder %1 cannot be read.").arg(m_path);
            return m_result;
        }
        m_conf = openFolder("conf");
        const OpenFolder database = openFolder("db");
        m_result.isShared = !isTrusted(m_repository.status()) || (m_conf.isOpen() && !holdsOwnAlone(m_conf))
                            || (database.isOpen() && !isTrusted(database.status()));
        for (const char *name : {"dists", "pool", "logs", "packages.conf"})
            noteLink(m_repository, name, QString());
        const QList<QByteArray> databaseFiles = database.names();
        for (const QByteArray &file : databaseFiles)
            // Files of this program: reprepro does not use them, and we do not follow links there.
            if (!file.startsWith("velt-admin-repo."))
                noteLink(database, file, QStringLiteral("db/"));
        findLinks(m_repository.folder("dists"), QStringLiteral("dists/"), 0);
        if (m_result.isShared && !useCopy())
            return m_result;
        readConfiguration();
        return m_result;
    }

private:
    QString m_path;
    OpenFolder m_repository;
    OpenFolder m_conf;
    ConfiguredPrograms m_programs;
    QStringList m_found; ///< names of links and unreadable files
    QCryptographicHash m_digest{QCryptographicHash::Sha256};
    RepositoryInspection m_result;

    void digest(const QByteArray &bytes)
    {
        // With the length in front, the border between two texts cannot be moved.
        m_digest.addData(QByteArray(QByteArray::number(bytes.size()) + ' '));
        m_digest.addData(bytes);
    }

    static bool holdsOwnAlone(const OpenFolder &folder)
    {
        const QList<QByteArray> names = folder.names();
        return isTrusted(folder.status())
               && std::all_of(names.cbegin(), names.cend(), [&folder](const QByteArray &name) {
                      const auto status = folder.statusOf(name);
                      // The mode of a link says nothing, and its target is checked separately.
                      return status && (S_ISLNK(status->st_mode) || isTrusted(status));
                  });
    }

    bool noteLink(const OpenFolder &folder, const QByteArray &name, const QString &inFolder)
    {
        const QByteArray target = folder.linkTarget(name);
        if (target.isNull())
            return false;
        m_found.append(
            tr("%1 is a link to %2").arg(inFolder + QFile::decodeName(name), QFile::decodeName(target)));
        digest(QFile::encodeName(inFolder) + name);
        digest(target);
        return true;
    }

    /** A folder of the repository. If it is a link, the link is noted and followed. */
    OpenFolder openFolder(const char *name)
    {
        return m_repository.folder(
            name, noteLink(m_repository, name, QString()) ? OpenFolder::Follow : OpenFolder::FollowNone);
    }

    /** Notes the links that can lead out of the repository: reprepro follows them when it writes. */
    void findLinks(const OpenFolder &folder, const QString &path, int depth)
    {
        const QList<QByteArray> names = folder.names();
        for (const QByteArray &name : names) {
            const QByteArray target = folder.linkTarget(name);
            if (target.startsWith('/') || target.split('/').contains(".."))
                noteLink(folder, name, path);
            else if (target.isNull() && depth < DeepestFolder)
                findLinks(folder.folder(name), path + QFile::decodeName(name) + QLatin1Char('/'), depth + 1);
        }
    }

    void refuse(const QString &reason)
    {
        m_result.refusal = tr("Other users can change the repository %1, and %2.").arg(m_path, reason);
    }

    /**
     * Makes reprepro read a private copy, because nobody else may change the configuration after the user has approved
     * it.
     */
    bool useCopy()
    {
        if (!m_found.isEmpty()) {
            refuse(m_found.first());
            return false;
        }
        const auto copy = std::make_shared<const ScratchFolder>();
        if (!copy->isValid() || !FolderCopy().copy(m_conf, copy->path())) {
            refuse(tr("its settings could not be copied"));
            return false;
        }
        OpenFolder copied(copy->path());
        for (const QByteArray &name : {OptionsFile, DistributionsFile}) {
            // Without its options the repository would have another configuration.
            if (m_conf.statusOf(name) && !copied.statusOf(name)) {
                refuse(tr("%1 is no file that can be read").arg(inConf(name)));
                return false;
            }
        }
        m_result.copy = copy;
        m_result.configFolder = copy->path();
        m_conf = std::move(copied);
        return true;
    }

    static QString inConf(const QByteArray &name) { return QLatin1String("conf/") + QFile::decodeName(name); }

    QByteArray configuration(const QByteArray &name)
    {
        if (!m_conf.statusOf(name))
            return {};
        const bool isLink = noteLink(m_conf, name, inConf({}));
        const auto file
            = m_conf.read(name, LargestFile, isLink ? OpenFolder::Follow : OpenFolder::FollowNone);
        if (!file) {
            m_found.append(tr("%1 cannot be read, and may name any program").arg(inConf(name)));
            digest("unreadable");
        } else if (isLink && !isTrusted(file->status)) {
            refuse(m_found.last());
        }
        return file ? file->contents : QByteArray();
    }

    void readConfiguration()
    {
        const QByteArray options = configuration(OptionsFile);
        m_programs.readOptions(options);
        m_programs.readDistributions(configuration(DistributionsFile));
        for (const QByteArray &folder : m_programs.folders())
            if (noteLink(m_repository, folder, QString()) && m_result.isShared)
                refuse(m_found.last());
        m_result.named = m_found + m_programs.lines();
        digest(options);
        for (const QString &line : m_programs.lines())
            digest(line.toUtf8());
        for (const QByteArray &word : m_programs.words()) {
            const auto file = word.startsWith(ConfiguredPrograms::BelowRepository)
                                  ? m_repository.read(word.mid(ConfiguredPrograms::BelowRepository.size()),
                                                      LargestFile,
                                                      OpenFolder::Follow)
                                  : m_conf.read(word, LargestFile, OpenFolder::Follow);
            digest(word);
            digest(file ? file->contents : QByteArray());
        }
        m_result.digest = m_digest.result();
    }
};
} // namespace

RepositoryInspection RepositoryInspection::of(const QString &repoPath)
{
    return Inspector(repoPath).inspect();
}

QString RepositoryInspection::identityOf(const QString &repoPath)
{
    return identityIn(OpenFolder(repoPath));
}

bool RepositoryInspection::belongsToUser(const QString &repoPath)
{
    const OpenFolder repository(repoPath);
    const auto isOwn = [&repository](const char *name) {
        const auto status = repository.folder(name).status();
        return status && status->st_uid == ::geteuid();
    };
    return isOwn("conf") && isOwn("db");
}
