// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

class QSettings;

/** The configurations of repositories that the user has agreed to, kept in the settings. */
class RepositoryApprovals
{
public:
    /** More of them push out the oldest. */
    static constexpr int Most = 200;

    explicit RepositoryApprovals(QSettings &settings)
        : m_settings(settings)
    { }

    /** `repository` says which folder is meant, also after a move, and `digest` what was agreed to. */
    bool contain(const QString &repository, const QByteArray &digest) const;
    void add(const QString &repository, const QByteArray &digest);

private:
    QSettings &m_settings;
};
