// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QString>

struct AddedFile;
struct AddRun;
class JobContext;

/** Signs the files of a job that adds packages, where the user wants that. */
class PackageSigner
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    explicit PackageSigner(JobContext &context)
        : m_context(context)
    { }

    /** Makes what reprepro gets of the file, once; false after critical() when the key has failed. */
    bool sign(AddedFile *file, const QString &packageName);
    /** The text of the key that signs; empty when none does. */
    static QString keyOf(AddRun *run);

private:
    JobContext &m_context;
};
