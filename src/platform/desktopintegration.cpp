// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktopintegration.h"

#include "files/settingsformat.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QGuiApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QStandardPaths>
#include <QTranslator>

#include <memory>

// Not in a namespace: the macro declares a function of the resource compiler.
static void initIconResource()
{
    Q_INIT_RESOURCE(velticons);
}

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
    if (toolkit->load(spoken,
                      QStringLiteral("qtbase"),
                      between,
                      QLibraryInfo::location(QLibraryInfo::TranslationsPath)))
        install(std::move(toolkit));
    install(std::move(own));
}

/** Not Qt's display name: Qt appends it to every window title, and our titles already begin with the name. */
QString &shownName()
{
    static QString name;
    return name;
}

bool isDark(const QPalette &palette)
{
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
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

    if (qobject_cast<QGuiApplication *>(QCoreApplication::instance()) == nullptr)
        return;
    QGuiApplication::setDesktopFileName(applicationId);
    veltSetUpIconThemes();
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

void veltSetUpIconThemes()
{
    initIconResource();
    // A platform without a desktop (offscreen) has no theme folders and no theme name.
    QStringList paths = QIcon::themeSearchPaths();
    const QStringList installed = QStandardPaths::locateAll(
        QStandardPaths::GenericDataLocation, QStringLiteral("icons"), QStandardPaths::LocateDirectory);
    for (const QString &path : installed) {
        if (!paths.contains(path))
            paths.append(path);
    }
    // Our folder is the last, so that our icons never hide the desktop's icons.
    const QString own = QStringLiteral(":/icons");
    paths.removeAll(own);
    paths.append(own);
    QIcon::setThemeSearchPaths(paths);

    const QString fallback
        = isDark(QGuiApplication::palette()) ? QStringLiteral("breeze-dark") : QStringLiteral("breeze");
    QIcon::setFallbackThemeName(fallback);
    if (QIcon::themeName().isEmpty())
        QIcon::setThemeName(fallback);
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
