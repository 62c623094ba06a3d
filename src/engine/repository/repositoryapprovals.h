// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

class QSettings;

/** The repository configurations that the user has approved, stored in the settings. */
class RepositoryApprovals
{
public:
    /** The oldest approvals are deleted when there are more. */
    static constexpr int Most = 200;

    explicit RepositoryApprovals(QSettings &settings)
        : m_settings(settings)
    { }

    /** `repository` identifies the folder, also after a move, and `digest` the approved configuration. */
    bool contain(const QString &repository, const QByteArray &digest) const;
    void add(const QString &repository, const QByteArray &digest);

private:
    QSettings &m_settings;
};
