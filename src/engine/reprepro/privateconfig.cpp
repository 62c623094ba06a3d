// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/reprepro/privateconfig.h"

#include "engine/repository/distributions.h"
#include "files/regularfile.h"
#include "files/wholefile.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QStandardPaths>

#include <algorithm>

namespace
{
const QString KeepFiles = QStringLiteral("keepunreferencedfiles");

QString optionName(const QString &line)
{
    static const QRegularExpression separator(QStringLiteral("[\\s=]"));
    QString name = line.trimmed().section(separator, 0, 0);
    while (name.startsWith(QLatin1Char('-')))
        name.remove(0, 1);
    return name;
}

/** The options of the repository; null when the file exists but cannot be read. */
QString ownOptions(const QString &configFolder)
{
    RegularFile file(configFolder + QLatin1String("/options"));
    if (!file.exists())
        return QStringLiteral("");
    return file.open(QIODevice::ReadOnly) ? QString::fromLocal8Bit(file.readAll()) + QLatin1Char('\n')
                                          : QString();
}

/** Whether reprepro runs programs of the administrator after changes. These may need the whole environment. */
bool runsOtherPrograms(const QString &configFolder, const QString &options)
{
    QFile description(configFolder + QLatin1String("/distributions"));
    if (!description.open(QIODevice::ReadOnly))
        return true;
    const QStringList fields = QString::fromLocal8Bit(description.readAll()).split(QLatin1Char('\n'));
    const QStringList lines = options.split(QLatin1Char('\n'));
    return !Distributions::fieldValue(fields, QStringLiteral("Log")).isEmpty()
           || std::any_of(lines.cbegin(), lines.cend(), [](const QString &line) {
                  return optionName(line).endsWith(QLatin1String("hook"));
              });
}

/**
 * An environment that avoids the start of five programs in each run. reprepro looks for a working gpg even when it does
 * not sign, and its library also runs gpgconf, gpgsm and others when they are on PATH. So PATH contains only gpg and
 * the programs for unpacking, and GNUPGHOME has no keys, so that no agent is started.
 */
QStringList leanEnvironment(const ScratchFolder &folder)
{
    const QDir root(folder.path());
    if (!root.mkdir(QStringLiteral("bin")) || !root.mkdir(QStringLiteral("gnupg")))
        return {};
    for (const char *name : {"gpg", "gunzip", "bunzip2", "unlzma", "unxz", "lunzip", "unzstd"}) {
        const QString program = QStandardPaths::findExecutable(QLatin1String(name));
        if (!program.isEmpty())
            QFile::link(program, root.filePath(QLatin1String("bin/") + QLatin1String(name)));
    }
    const QString keys = root.filePath(QStringLiteral("gnupg"));
    QFile::setPermissions(keys, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    return {QLatin1String("GNUPGHOME=") + keys,
            QLatin1String("PATH=") + root.filePath(QStringLiteral("bin"))};
}
} // namespace

PrivateConfig::PrivateConfig(const QString &configFolder,
                             Unreferenced unreferenced,
                             const QByteArray &description)
{
    const QDir conf(configFolder);
    if (!m_folder.isValid())
        return;
    QStringList ownFiles{QStringLiteral("options")};
    if (!description.isEmpty()) {
        ownFiles.append(QStringLiteral("distributions"));
        QFile file(m_folder.filePath(ownFiles.last()));
        if (!file.open(QIODevice::WriteOnly) || !WholeFile::writeOut(file, description))
            return;
    }
    const QStringList entries = conf.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    for (const QString &entry : entries) {
        if (!ownFiles.contains(entry) && !QFile::link(conf.absoluteFilePath(entry), m_folder.filePath(entry)))
            return;
    }
    const QString own = ownOptions(configFolder);
    if (own.isNull())
        return;

    QFile options(m_folder.filePath(QStringLiteral("options")));
    const QByteArray text = optionsText(own, unreferenced).toLocal8Bit();
    if (!options.open(QIODevice::WriteOnly) || !WholeFile::writeOut(options, text))
        return;
    m_valid = true;
    if (!runsOtherPrograms(configFolder, own))
        m_environment = leanEnvironment(m_folder);
    m_environment.prepend(QLatin1String("REPREPRO_CONFIG_DIR=") + m_folder.path());
}

void PrivateConfig::useWholeEnvironment()
{
    m_environment = m_environment.mid(0, 1);
}

bool PrivateConfig::keepsUnreferencedFiles(const QString &configFolder)
{
    const QStringList lines = ownOptions(configFolder).split(QLatin1Char('\n'));
    return std::any_of(
        lines.cbegin(), lines.cend(), [](const QString &line) { return optionName(line) == KeepFiles; });
}

bool PrivateConfig::exportsNever(const QString &configFolder)
{
    const QStringList lines = ownOptions(configFolder).split(QLatin1Char('\n'));
    return std::any_of(lines.cbegin(), lines.cend(), [](const QString &line) {
        return optionName(line) == QLatin1String("export") && line.contains(QLatin1String("never"));
    });
}

QString PrivateConfig::optionsText(const QString &own, Unreferenced unreferenced)
{
    QString text;
    const QStringList lines = own.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        const QString name = optionName(line);
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
