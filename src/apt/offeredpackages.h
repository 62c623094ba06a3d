// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/addedsources.h"
#include "apt/aptlists.h"
#include "core/packageinfo.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <utility>

/**
 * The packages in all lists that apt has fetched, searched in this process: a search among 63,000 packages takes some
 * milliseconds, and apt itself many seconds for a short text. Not for the interface thread.
 */
class OfferedPackages
{
public:
    OfferedPackages() = default;
    /** Also the packages in the lists of these sources that have been fetched; it fetches none. */
    explicit OfferedPackages(AddedSources added)
        : m_added(std::move(added))
    { }

    /**
     * Reads the lists that are new or have changed since the last call. False when apt could not be asked, or after a
     * stop. Lists that cannot be read are left out.
     */
    bool refresh(const StopRequest &stopped = {});
    /** Whether no list at all was fetched. */
    bool isEmpty() const { return m_lists.isEmpty(); }
    /** Why refresh() has failed, or which lists it could not read; empty when all is well. */
    QString errorDetail() const { return m_errorDetail; }

    /** The packages whose names begin with the text, by name and then as the lists have them. */
    QList<PackageInfo> withPrefix(const QString &prefix, const StopRequest &stopped = {}) const;
    /**
     * The packages with each of the words in the name or in the short description. Capital letters are as good as small
     * ones.
     */
    QList<PackageInfo> withWords(const QString &words, const StopRequest &stopped = {}) const;

private:
    struct List
    {
        AptList list;
        QByteArray stamp;
        QVector<ControlText> paragraphs;
        QString problem; ///< why it could not be read whole; empty when it could
    };

    AddedSources m_added;
    QVector<List> m_lists;
    QString m_errorDetail;

    template <typename Fits>
    QList<PackageInfo> find(const Fits &fits, const StopRequest &stopped) const;
};
