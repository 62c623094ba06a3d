// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/installability/completecheckstate.h"

#include "installability/packagesdigest.h"

#include <QMutexLocker>

namespace
{
constexpr char Separator = '-';

QByteArray packagesPart(const QByteArray &digest)
{
    return digest.left(digest.lastIndexOf(Separator));
}

QByteArray basePart(const QByteArray &digest)
{
    return digest.mid(digest.lastIndexOf(Separator) + 1);
}
} // namespace

CompleteCheckRecord CompleteCheckState::record() const
{
    const QMutexLocker lock(&m_mutex);
    return m_record;
}

void CompleteCheckState::set(const CompleteCheckRecord &record)
{
    const QMutexLocker lock(&m_mutex);
    m_record = record;
    m_arePackagesOther = false;
    m_isBaseOther = false;
    m_isBaseOpen = false;
}

void CompleteCheckState::setStored(const CompleteCheckRecord &record)
{
    set(record);
    forgetBase();
}

bool CompleteCheckState::isBaseOpen() const
{
    const QMutexLocker lock(&m_mutex);
    return m_isBaseOpen && m_record.isValid();
}

void CompleteCheckState::forgetBase()
{
    const QMutexLocker lock(&m_mutex);
    m_isBaseOpen = true;
    ++m_baseChanges;
}

int CompleteCheckState::baseChanges() const
{
    const QMutexLocker lock(&m_mutex);
    return m_baseChanges;
}

void CompleteCheckState::comparePackages(const QList<PackageInfoPtr> &packages)
{
    const QByteArray known = record().digest;
    const QByteArray now = known.isEmpty() ? QByteArray() : PackagesDigest::of(packages);
    const QMutexLocker lock(&m_mutex);
    // Another check may have ended in between; its own record holds.
    if (m_record.digest != known)
        return;
    m_arePackagesOther = packagesPart(known) != now;
    update();
}

void CompleteCheckState::compareBase(const CompleteCheckRecord &record,
                                     int changes,
                                     const QByteArray &baseDigest)
{
    const QMutexLocker lock(&m_mutex);
    if (m_record.base != record.base || m_record.digest != record.digest || m_baseChanges != changes)
        return;
    m_isBaseOpen = false;
    m_isBaseOther = basePart(m_record.digest) != baseDigest;
    update();
}

QByteArray CompleteCheckState::digestOf(const QList<PackageInfoPtr> &packages, const QByteArray &baseDigest)
{
    return PackagesDigest::of(packages) + Separator + baseDigest;
}

void CompleteCheckState::update()
{
    m_record.isStale = m_record.isValid() && (m_arePackagesOther || m_isBaseOther);
}
