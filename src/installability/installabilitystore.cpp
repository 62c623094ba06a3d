// SPDX-License-Identifier: GPL-3.0-or-later
#include "installability/installabilitystore.h"

InstallabilityStore::InstallabilityStore(const QString &fileName)
    : m_file(fileName, 1)
{ }

QString InstallabilityStore::userFileName()
{
    return ResultsFile::userFileName(QStringLiteral("installability"));
}

StoredCompleteCheck InstallabilityStore::load(const QString &repository, QString *keptAs) const
{
    StoredCompleteCheck check;
    QString kept;
    const auto read = [&](QIODevice *file) { return StoredCompleteCheck::read(file, repository, &check); };
    if (repository.isEmpty() || !m_file.read(read, &kept) || check.isEmpty())
        check = {};
    if (keptAs != nullptr)
        *keptAs = kept;
    return check;
}

bool InstallabilityStore::save(const QString &repository,
                               const StoredCompleteCheck &check,
                               QString *keptAs) const
{
    if (check.isEmpty())
        return remove(repository);
    return !repository.isEmpty()
           && rewrite({repository, {}, [&check](JsonWriter &writer) { check.write(writer); }}, keptAs);
}

bool InstallabilityStore::move(const QString &repository, const QString &newPath) const
{
    if (repository.isEmpty() || newPath.isEmpty())
        return false;
    return repository == newPath || !m_file.hasMember({repository, newPath})
           || rewrite({repository, newPath, nullptr}, nullptr);
}

bool InstallabilityStore::remove(const QString &repository) const
{
    return !m_file.hasMember({repository}) || rewrite({repository, {}, nullptr}, nullptr);
}

bool InstallabilityStore::rewrite(const ResultsDocument::Change &change, QString *keptAs) const
{
    QString kept;
    const bool isWritten = m_file.rewrite(change, &kept);
    if (keptAs != nullptr)
        *keptAs = kept;
    return isWritten;
}
