// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/privateconfig.h"

#include "engine/distributions.h"
#include "engine/distributionsfile.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

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

bool notifiesOthers(const QString &repoPath)
{
    const auto text = DistributionsFile(repoPath).readBytes();
    return !text
           || Distributions::fieldValue(QString::fromLocal8Bit(*text).split(QLatin1Char('\n')),
                                        QStringLiteral("Log"))
                      .size()
                  > 0;
}

/** The repository's own options; null when there is such a file but it cannot be read. */
QString ownOptions(const QString &repoPath)
{
    QFile file(repoPath + QLatin1String("/conf/options"));
    if (!file.exists())
        return QStringLiteral("");
    return file.open(QIODevice::ReadOnly) ? QString::fromLocal8Bit(file.readAll()) + QLatin1Char('\n')
                                          : QString();
}
} // namespace

PrivateConfig::PrivateConfig(const QString &repoPath, Unreferenced unreferenced)
{
    const QDir conf(repoPath + QLatin1String("/conf"));
    if (!m_folder.isValid())
        return;
    const QStringList entries = conf.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    for (const QString &entry : entries) {
        if (entry != QLatin1String("options")
            && !QFile::link(conf.absoluteFilePath(entry), m_folder.filePath(entry)))
            return;
    }
    const QString own = ownOptions(repoPath);
    if (own.isNull())
        return;

    QFile options(m_folder.filePath(QStringLiteral("options")));
    const QByteArray text = optionsText(own, unreferenced).toLocal8Bit();
    if (!options.open(QIODevice::WriteOnly) || options.write(text) != text.size())
        return;
    m_valid = true;
    // Nothing is signed without an export, so with no keys to look at reprepro need not wake the user's gpg at each
    // run. But a program that the repository has set up to hear of changes may need the user's keys.
    if (notifiesOthers(repoPath) || !QDir(m_folder.path()).mkdir(QStringLiteral("gnupg")))
        return;
    m_keyless = m_folder.filePath(QStringLiteral("gnupg"));
    QFile::setPermissions(m_keyless,
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
}

bool PrivateConfig::keepsUnreferencedFiles(const QString &repoPath)
{
    const QStringList lines = ownOptions(repoPath).split(QLatin1Char('\n'));
    return std::any_of(
        lines.cbegin(), lines.cend(), [](const QString &line) { return optionName(line) == KeepFiles; });
}

QStringList PrivateConfig::environment() const
{
    QStringList environment{QLatin1String("REPREPRO_CONFIG_DIR=") + m_folder.path()};
    if (!m_keyless.isEmpty())
        environment.append(QLatin1String("GNUPGHOME=") + m_keyless);
    return environment;
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
