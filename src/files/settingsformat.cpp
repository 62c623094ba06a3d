// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/settingsformat.h"

#include "files/scratchfolder.h"
#include "files/wholefile.h"

#include <QFile>

namespace
{
// Qt sorts the sections. No name sorts after this one.
const QString endKey = QStringLiteral(u"\uFFFF/whole");
const QByteArray endText("\n[%UFFFF]\nwhole=true\n");

bool read(QIODevice &device, QSettings::SettingsMap &map)
{
    const auto *file = qobject_cast<QFileDevice *>(&device);
    if (file == nullptr)
        return false;
    // Another path of the same file, because Qt already holds the lock of its usual path.
    const QSettings settings(QLatin1String("/proc/self/root") + file->fileName(), QSettings::IniFormat);
    const QStringList keys = settings.allKeys();
    for (const QString &key : keys)
        map.insert(key, settings.value(key));
    // If the file is no valid INI file, its readable part is used, as Qt does.
    return settings.status() != QSettings::AccessError;
}

/** The settings as Qt writes them to a file; null on failure. */
QByteArray iniText(const QSettings::SettingsMap &map)
{
    const ScratchFolder folder;
    QFile file(folder.filePath(QStringLiteral("settings.ini")));
    if (!folder.isValid())
        return {};
    {
        QSettings settings(file.fileName(), QSettings::IniFormat);
        for (auto value = map.cbegin(); value != map.cend(); ++value)
            settings.setValue(value.key(), value.value());
        // A text that ends with this key is complete.
        settings.setValue(endKey, true);
    }
    QByteArray text = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    if (!text.endsWith(endText))
        return {};
    text.chop(endText.size());
    return text;
}

bool write(QIODevice &device, const QSettings::SettingsMap &map)
{
    auto *file = qobject_cast<QFileDevice *>(&device);
    const QByteArray text = map.isEmpty() ? QByteArray("") : iniText(map);
    return file != nullptr && !text.isNull() && WholeFile::writeOut(*file, text);
}
} // namespace

QSettings::Format SettingsFormat::ini()
{
    // Settings files of programs have this extension anyway.
    static const QSettings::Format format
        = QSettings::registerFormat(QStringLiteral("conf"), read, write, Qt::CaseSensitive);
    return format;
}

void SettingsFormat::useForOwnSettings()
{
    QSettings::setDefaultFormat(ini());
}
