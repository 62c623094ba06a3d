// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoinfo.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

/** The values that the fields of a description may have. The rules are those of reprepro(1), conf/distributions. */
class DescriptionFields
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    /** The most days of RepoInfo::validFor: reprepro refuses more than 100 years. */
    static constexpr int MostDays = 36500;

    /** All words of RepoInfo::contentsChoices. */
    static QStringList contentsWords();
    /** Why these words cannot be chosen together, for the user; empty when they can. */
    static QString contentsRefusal(const QString &choices);
    /** Whether the text is a fingerprint or a key id of 8 digits or more. */
    static bool isKey(const QString &text);
    /** The days of a value such as "1m 11d"; 0 when it is none, or has more than MostDays. */
    static int days(const QString &value);
    /** Whether the text can be a value in one line of the description, where # begins a comment. */
    static bool isOneLine(const QString &text);

    /** Why a description cannot have these values, for the user; empty when it can. Those of `before` may stay. */
    static QString refusal(const RepoInfo &info, const RepoInfo &before = {});
    /**
     * Why the key of the description cannot sign, for the user; empty when it can, and when `before` has the same key.
     * Runs gpg: not for the interface thread.
     */
    static QString keyRefusal(const RepoInfo &info, const RepoInfo &before = {});
};
