// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/repoenums.h"
#include "core/repoinfo.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QList>
#include <QString>

#include <optional>

struct JobContext;
struct RepoChange;

/** Changes the description of the open repository, and moves the repository where that is wanted. */
class ChangeJob : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    /** What the user wants; RepoShell::changeRepo() describes the members. */
    struct Wish
    {
        QString path; ///< absolute
        RepoInfo info;
        std::optional<QByteArray> given = {};
        bool carriesPackages = false;
        bool knowsLosses = false; ///< a preview has shown the lines that the description loses
    };

    explicit ChangeJob(JobContext &context)
        : m_context(context)
    { }

    int run(const Wish &wish);
    /**
     * Whether the description `text` can be changed to `after`. Tells why it cannot: for example because it is not the
     * one from which the wish was `given`. Can run gpg.
     */
    bool isPossible(const QByteArray &text, const std::optional<QByteArray> &given, const RepoInfo &after);

private:
    JobContext &m_context;

    bool isUnderstood(const QByteArray &text, const std::optional<QByteArray> &given);
    bool userAgreesToLosses(const QByteArray &text, const Wish &wish);
    bool keepForUndoing(const QByteArray &text, const RepoInfo &wanted);
    void tellOfGone(const RepoChange &change, const QList<PackageInfoPtr> &before);
};
