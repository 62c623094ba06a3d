// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archive/packageextractor.h"

#include "core/countof.h"
#include "core/packagenames.h"
#include "engine/archive/tarreader.h"
#include "files/freespace.h"
#include "files/regularfile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>

#include <utility>

namespace
{
constexpr int CopySize = 1 << 20;

/** The member's name without redundant parts; empty for a name with "..", which could leave the folder. */
QByteArray normalized(const QByteArray &name)
{
    QByteArrayList parts;
    const QByteArrayList given = name.split('/');
    for (const QByteArray &part : given) {
        if (part == "..")
            return {};
        if (!part.isEmpty() && part != ".")
            parts.append(part);
    }
    return parts.join('/');
}

QByteArray lastPart(const QByteArray &name)
{
    return name.mid(name.lastIndexOf('/') + 1);
}
} // namespace

PackageExtractor::PackageExtractor(QString folder, StopRequest stopped)
    : m_folder(std::move(folder))
    , m_stopped(std::move(stopped))
{ }

PackageExtractor::Result PackageExtractor::extract(const QString &archive)
{
    m_archiveSize = QFileInfo(archive).size();
    TarReader reader(archive);
    for (bool first = true;; first = false) {
        if (m_stopped())
            return Result::Stopped;
        const TarHeader header = reader.next();
        if (header.kind == TarHeader::Kind::End)
            return Result::Done;
        if (header.kind == TarHeader::Kind::Invalid)
            return first && reader.error().isEmpty() ? Result::NoTar : damaged(reader.error());
        const QByteArray member = normalized(header.name);
        if (header.name.endsWith('/') || !PackageNames::isPackageFile(QFile::decodeName(member))
            || PackageNames::isInRestorePoint(QFile::decodeName(member)))
            continue;
        if (header.kind != TarHeader::Kind::File) {
            m_passedOver.append(QFile::decodeName(member));
            continue;
        }
        const Result result = take(&reader, member);
        if (result != Result::Done)
            return result;
    }
}

PackageExtractor::Result PackageExtractor::take(TarReader *reader, const QByteArray &member)
{
    return write(
        member,
        [reader](char *data, int size) { return reader->read(data, size); },
        [reader] { return reader->error(); });
}

PackageExtractor::Result PackageExtractor::copy(const QStringList &files)
{
    for (const QString &path : files) {
        RegularFile file(path);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
            return damaged(file.errorString());
        const Result result = write(
            QFile::encodeName(path),
            [&file](char *data, int size) { return static_cast<int>(file.read(data, size)); },
            [&file] { return file.errorString(); });
        if (result != Result::Done)
            return result;
    }
    return Result::Done;
}

PackageExtractor::Result PackageExtractor::write(const QByteArray &member,
                                                 const std::function<int(char *, int)> &read,
                                                 const std::function<QString()> &readError)
{
    QFile file(placeFor(member));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        return damaged(file.fileName() + QLatin1String(": ") + file.errorString());
    QByteArray buffer(CopySize, Qt::Uninitialized);
    for (;;) {
        if (m_stopped())
            return Result::Stopped;
        const int size = read(buffer.data(), countOf(buffer));
        if (size == 0)
            return Result::Done;
        if (size < 0)
            return damaged(readError());
        const Result admitted = admit(size);
        if (admitted != Result::Done)
            return admitted;
        if (file.write(buffer.constData(), size) != size)
            return damaged(file.fileName() + QLatin1String(": ") + file.errorString());
    }
}

PackageExtractor::Result PackageExtractor::admit(qint64 size)
{
    m_written += size;
    if (m_consent && m_written > m_limits.unasked && m_written / m_limits.ratio > m_archiveSize) {
        if (!m_consent(m_written, m_archiveSize))
            return Result::Refused;
        m_consent = nullptr;
    }
    const qint64 free = freeSpace(m_folder);
    // The free space is not known; a write fails when there is none.
    if (free < 0)
        return Result::Done;
    if (m_keptFree < 0)
        m_keptFree = m_limits.keptFree(free);
    if (free - size >= m_keptFree)
        return Result::Done;
    const QLocale locale;
    return damaged(
        tr("The packages in the archive need more room than there is: unpacking was given up at %1. %2 "
           "are left in %3, and %4 have to stay free.")
            .arg(locale.formattedDataSize(m_written),
                 locale.formattedDataSize(free),
                 m_folder,
                 locale.formattedDataSize(m_keptFree)));
}

QString PackageExtractor::placeFor(const QByteArray &member)
{
    // A member that is in the archive twice replaces its first copy.
    const auto known = m_places.constFind(member);
    if (known != m_places.constEnd())
        return *known;
    // Equal file names from several folders get a folder each.
    const QString name = QFile::decodeName(lastPart(member));
    QString place = m_folder + QLatin1Char('/') + name;
    if (QFileInfo::exists(place)) {
        const QString folder = m_folder + QLatin1Char('/') + QString::number(m_places.size());
        QDir().mkpath(folder);
        place = folder + QLatin1Char('/') + name;
    }
    m_places.insert(member, place);
    m_files.append(place);
    return place;
}

QHash<QString, QString> PackageExtractor::members() const
{
    QHash<QString, QString> members;
    for (auto place = m_places.cbegin(); place != m_places.cend(); ++place)
        members.insert(*place, QFile::decodeName(place.key()));
    return members;
}

PackageExtractor::Result PackageExtractor::damaged(const QString &reason)
{
    m_error = reason;
    return Result::Damaged;
}
