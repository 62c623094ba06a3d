// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/search/packagesearcher.h"

#include "apt/aptutils.h"
#include "files/wholefile.h"

#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QtConcurrent>

#include <utility>

PackageSearcher::PackageSearcher(PackageFilter filter)
    : m_filter(std::move(filter))
    , m_apt(new AptUtils(this))
{
    qRegisterMetaType<QList<PackageInfo>>("QList<PackageInfo>");
    connect(m_apt, &ProcessUtils::error, this, [this](const QString &text, const QString &detailedText) {
        // A cancelled search fails because its program was killed.
        if (!isSuperseded(m_current))
            Q_EMIT searchFailed(text, detailedText);
    });
    m_thread.setObjectName(QStringLiteral("PackageSearcher"));
    moveToThread(&m_thread);
    m_thread.start(QThread::InheritPriority);
}

PackageSearcher::~PackageSearcher()
{
    cancel();
    m_thread.quit();
    m_thread.wait();
}

void PackageSearcher::cancel()
{
    ++m_newest;
}

void PackageSearcher::startSearch(const QString &packagePattern)
{
    const int number = ++m_newest;
    if (packagePattern.isEmpty())
        return;
    ++m_pending;
    QMetaObject::invokeMethod(
        this, [this, packagePattern, number] { search(packagePattern, number); }, Qt::QueuedConnection);
}

void PackageSearcher::search(const QString &pattern, int number)
{
    const auto ended = qScopeGuard([this] { --m_pending; });
    if (isSuperseded(number))
        return;
    m_current = number;
    Q_EMIT searchStarted();
    m_apt->setStopRequest([this, number] { return isSuperseded(number); });
    if (!m_config)
        askForNamesOnly();
    const QStringList names = m_apt->searchByPrefix(pattern);
    if (isSuperseded(number))
        return;
    const QStringList wanted = names.mid(0, NameLimit);
    Q_EMIT namesFound(pattern, names.size(), wanted.size());
    // The search itself reports nothing when apt is broken or has no package lists.
    if (names.isEmpty() && m_apt->sourcesFromPolicy().isEmpty() && m_apt->exitCode() == 0
        && !isSuperseded(number))
        Q_EMIT searchFailed(AptUtils::tr("Apt error"), AptUtils::noSourcesText());

    // The blocking function also works in this thread: all threads of the pool may be busy with waiting jobs.
    const QList<PackageInfo> packages = QtConcurrent::blockingFiltered(
        packagesOf(wanted, number), [this](const PackageInfo &package) { return m_filter.accepts(package); });
    if (!isSuperseded(number))
        Q_EMIT newPackageFound(packages);
}

void PackageSearcher::askForNamesOnly()
{
    // By default apt also searches all descriptions. This takes minutes with compressed lists, and we use only the
    // names.
    m_config = std::make_unique<ScratchFolder>();
    QByteArray text("APT::Cache::NamesOnly \"true\";\n");
    const QString own = qEnvironmentVariable("APT_CONFIG");
    if (!own.isEmpty())
        text.prepend(
            QStringLiteral("#include \"%1\";\n").arg(QFileInfo(own).absoluteFilePath()).toLocal8Bit());
    QFile file(m_config->filePath(QStringLiteral("apt.conf")));
    if (m_config->isValid() && file.open(QIODevice::WriteOnly) && WholeFile::writeOut(file, text))
        m_apt->setEnvironment({QLatin1String("APT_CONFIG=") + file.fileName()});
}

QList<PackageInfo> PackageSearcher::packagesOf(const QStringList &names, int number)
{
    constexpr int NamesPerRun = 250;
    QList<PackageInfo> packages;
    for (int first = 0; first < names.size() && !isSuperseded(number); first += NamesPerRun) {
        const auto records = m_apt->packageRecords(names.mid(first, NamesPerRun));
        for (const AptPackageRecord &record : records) {
            PackageInfo package;
            package.name = record.name;
            package.version = record.version;
            package.architecture = record.architecture;
            package.repository = record.repository;
            packages.append(package);
        }
    }
    return packages;
}
