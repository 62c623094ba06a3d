// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/changes/addoptions.h"

#include <QCoreApplication>
#include <QString>

#include <optional>

struct AddedFile;
struct JobContext;

/** Signs the files of one job that adds packages, where the user wants that. */
class PackageSigner
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    PackageSigner(JobContext &context, AddOptions options)
        : m_context(context)
        , m_options(std::move(options))
    { }

    bool isSigning() const { return m_options.sign; }
    /** Makes what reprepro gets of the file, once. False after an error, when the key has failed. */
    bool sign(AddedFile *file, const QString &packageName);
    /** The text of the key that signs; empty when none does. */
    QString key();

private:
    JobContext &m_context;
    const AddOptions m_options;
    std::optional<QString> m_key; ///< its text, looked up when the first file is in
    QString m_keyTrouble; ///< why the key cannot be used, once that is known
};
