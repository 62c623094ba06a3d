// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archive/packagefile.h"

#include "apt/dpkgoutput.h"
#include "apt/dpkgutils.h"
#include "core/countof.h"
#include "core/packagenames.h"
#include "engine/archive/debarchive.h"
#include "engine/archive/debcontents.h"
#include "engine/archive/debcontrol.h"

#include <QFileInfo>
#include <QtConcurrent>

#include <utility>

namespace
{
/** Why a file is refused before it is read; empty when it is not. */
QString refusal(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return PackageFile::tr("There is no such file.");
    if (!PackageNames::isPackageFile(path))
        return PackageFile::tr("Its name does not end in .deb or .udeb.");
    // Opening a pipe would wait for a writer.
    if (!info.isFile())
        return PackageFile::tr("It is no regular file.");
    return info.size() == 0 ? PackageFile::tr("The file is empty.") : QString();
}
} // namespace

PackageFile PackageFile::read(const QString &path, const std::function<bool()> &stopped, Purpose purpose)
{
    const QString reason = refusal(path);
    if (!reason.isEmpty())
        return {path, {}, reason};
    QString information;
    const auto control = debControl(path, stopped);
    if (control) {
        information = DpkgOutput::printed(*control);
    } else {
        DpkgUtils dpkg;
        dpkg.setStopRequest(stopped);
        if (!dpkg.packageInformation(path))
            return {path, {}, dpkg.errorText()};
        information = dpkg.output();
    }
    DebMember data;
    if (debArchiveState(path, &data) != DebArchiveState::Whole)
        return {path, {}, tr("The file is damaged: its end is missing.")};
    if (debContentsState(path, data, stopped) == DebContentsState::Damaged)
        return {path, {}, tr("The file is damaged: what it contains cannot be unpacked.")};
    const auto type = path.endsWith(QLatin1String(".udeb")) ? PackageType::Udeb : PackageType::Deb;
    const auto package = DpkgOutput::packageInfo(information, type);
    if (!package)
        return {path, {}, tr("Its control data lack the package's name, version or architecture.")};
    PackageFile file{path, QSharedPointer<PackageInfo>::create(*package), QString()};
    const bool isForIndex = purpose != ForRecord && control && QFileInfo(path).size() <= LargestForIndex;
    if (isForIndex)
        file.control = *control;
    if (isForIndex || purpose == ForComparison)
        file.checksums = FileChecksums::of(path, stopped);
    return file;
}

PackageFileReader::PackageFileReader(QStringList paths,
                                     int ahead,
                                     std::function<bool()> stopped,
                                     PackageFile::Purpose purpose)
    : m_paths(std::move(paths))
    , m_ahead(ahead)
    , m_purpose(purpose)
    , m_stopped([stopped = std::move(stopped), abandoned = m_abandoned] { return *abandoned || stopped(); })
{
    startNext();
}

PackageFileReader::~PackageFileReader()
{
    *m_abandoned = true;
    m_pool.clear();
    m_pool.waitForDone();
}

QVector<PackageFile> PackageFileReader::next(int most)
{
    QVector<PackageFile> files;
    // While the first files are awaited, reading of the next ones begins.
    const int count = qMin(most, countOf(m_reading));
    for (int i = 0; i < count; ++i) {
        files.append(m_reading.dequeue().result());
        startNext();
    }
    return files;
}

void PackageFileReader::startNext()
{
    while (!m_paths.isEmpty() && m_reading.size() < m_ahead)
        m_reading.enqueue(QtConcurrent::run(&m_pool,
                                            &PackageFile::read,
                                            QFileInfo(m_paths.takeFirst()).absoluteFilePath(),
                                            m_stopped,
                                            m_purpose));
}
