// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktopintegration.h"

#include "core/qtversions.h"
#include "files/settingsformat.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLocale>
#include <QStandardPaths>
#include <QTranslator>

#include <memory>

namespace
{
const QLatin1String applicationId("velt-admin-repo");

void install(std::unique_ptr<QTranslator> translator)
{
    translator->setParent(QCoreApplication::instance());
    QCoreApplication::installTranslator(translator.release());
}

QString &shownLanguage()
{
    static QString language(QStringLiteral("en"));
    return language;
}

/**
 * Installs the translation for the first of the user's languages that we have, or else for English, whose file has the
 * plural forms. Qt's own texts use the same language, even if Qt has more languages: a button must not differ from the
 * question above it.
 */
void installTranslations(const QString &folder)
{
    const QLatin1String between("_");
    auto own = std::make_unique<QTranslator>();
    if (!own->load(QLocale(), applicationId, between, folder)
        && !own->load(QLocale(QLocale::English), applicationId, between, folder))
        return;
    const QLocale spoken(own->language());
    shownLanguage() = spoken.name().section(between, 0, 0);
    auto toolkit = std::make_unique<QTranslator>();
    if (toolkit->load(spoken, QStringLiteral("qtbase"), between, QtVersions::translationsFolder()))
        install(std::move(toolkit));
    install(std::move(own));
}

/** Not Qt's display name: Qt appends it to every window title, and our titles already begin with the name. */
QString &shownName()
{
    static QString name;
    return name;
}
} // namespace

void veltInit(const QString &version, const QString &displayName)
{
    shownName() = displayName;
    QCoreApplication::setApplicationName(applicationId);
    QCoreApplication::setApplicationVersion(version);
    QCoreApplication::setOrganizationName(QStringLiteral("corvana"));
    SettingsFormat::useForOwnSettings();

    const QString translations = veltDataFile(applicationId + QStringLiteral("/translations"));
    if (!translations.isEmpty())
        installTranslations(translations);
}

QString veltLanguage()
{
    return shownLanguage();
}

QString veltDisplayName()
{
    return shownName();
}

QString veltAppDescription()
{
    return QCoreApplication::translate("main", "Velt admin repo tool");
}

QString veltDataFile(const QString &relativePath)
{
    const QFileInfo beside(QCoreApplication::applicationDirPath() + QStringLiteral("/../share/")
                           + relativePath);
    if (beside.exists())
        return beside.canonicalFilePath();
    const auto data = QStandardPaths::GenericDataLocation;
    const QString file = QStandardPaths::locate(data, relativePath, QStandardPaths::LocateFile);
    return file.isEmpty() ? QStandardPaths::locate(data, relativePath, QStandardPaths::LocateDirectory)
                          : file;
}
