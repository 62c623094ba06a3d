// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/changes/decidedplaces.h"

#include "engine/archive/filechecksums.h"

#include <algorithm>
#include <iterator>

bool DecidedPlaces::wants(const PackageInfo &record, const QString &file) const
{
    const auto choice = m_choices.constFind(PackageKey::of(record));
    return choice != m_choices.cend() && choice->version == record.version
           && (choice->file.isEmpty() || choice->file == file);
}

QVector<PackageInfo> DecidedPlaces::wanted(const QVector<PackageInfo> &records, const QString &file) const
{
    QVector<PackageInfo> wanted;
    std::copy_if(records.cbegin(),
                 records.cend(),
                 std::back_inserter(wanted),
                 [&](const PackageInfo &record) { return wants(record, file); });
    return wanted;
}

bool DecidedPlaces::isExpected(const QVector<PackageInfo> &records, const QString &file) const
{
    QByteArray expected;
    for (const PackageInfo &record : records)
        if (expected.isEmpty())
            expected = m_choices.value(PackageKey::of(record)).sha256;
    return expected.isEmpty() || FileChecksums::of(file).sha256 == expected;
}
