// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/reprepro/privateconfig.h"

#include "engine/reprepro/configfolder.h"
#include "files/wholefile.h"

#include <QDir>
#include <QFile>

namespace
{
const QString KeepFiles = QStringLiteral("keepunreferencedfiles");
} // namespace

PrivateConfig::PrivateConfig(const ConfigFolder &own,
                             Unreferenced unreferenced,
                             const QByteArray &description,
                             const QByteArray &updates)
{
    const QDir conf(own.path());
    if (!m_folder.isValid())
        return;
    QStringList ownFiles{QStringLiteral("options")};
    const auto replace = [&](const QString &name, const QByteArray &text) {
        if (text.isEmpty())
            return true;
        ownFiles.append(name);
        QFile file(m_folder.filePath(name));
        return file.open(QIODevice::WriteOnly) && WholeFile::writeOut(file, text);
    };
    if (!replace(QStringLiteral("distributions"), description)
        || !replace(QStringLiteral("updates"), updates))
        return;
    const QStringList entries = conf.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    for (const QString &entry : entries) {
        if (!ownFiles.contains(entry) && !QFile::link(conf.absoluteFilePath(entry), m_folder.filePath(entry)))
            return;
    }
    const QString ownOptions = own.options();
    if (ownOptions.isNull())
        return;

    QFile options(m_folder.filePath(QStringLiteral("options")));
    const QByteArray text = optionsText(ownOptions, unreferenced).toLocal8Bit();
    if (!options.open(QIODevice::WriteOnly) || !WholeFile::writeOut(options, text))
        return;
    m_valid = true;
    if (!own.runsPrograms())
        m_environment = m_lean.emplace().variables();
    m_environment.prepend(QLatin1String("REPREPRO_CONFIG_DIR=") + m_folder.path());
}

void PrivateConfig::useWholeEnvironment()
{
    m_environment = m_environment.mid(0, 1);
}

QString PrivateConfig::optionsText(const QString &own, Unreferenced unreferenced)
{
    QString text;
    const QStringList lines = own.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        const QString name = ConfigFolder::optionName(line);
        if (name != QLatin1String("export") && name != KeepFiles
            && name != QLatin1String("deleteunreferenced")
            && name != QLatin1String("nokeepunreferencedfiles"))
            text += line + QLatin1Char('\n');
    }
    text += QLatin1String("export silent-never\n");
    if (unreferenced == Keep)
        text += KeepFiles + QLatin1Char('\n');
    return text;
}
