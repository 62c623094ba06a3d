// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/reprepro/leanenvironment.h"

#include <QFile>
#include <QStandardPaths>

LeanEnvironment::LeanEnvironment()
{
    const QDir root(m_folder.path());
    if (!m_folder.isValid() || !root.mkdir(QStringLiteral("bin")) || !root.mkdir(QStringLiteral("gnupg")))
        return;
    for (const char *name : {"gpg", "gunzip", "bunzip2", "unlzma", "unxz", "lunzip", "unzstd"}) {
        const QString program = QStandardPaths::findExecutable(QLatin1String(name));
        if (!program.isEmpty())
            QFile::link(program, root.filePath(QLatin1String("bin/") + QLatin1String(name)));
    }
    const QString keys = root.filePath(QStringLiteral("gnupg"));
    QFile::setPermissions(keys, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    m_variables = QStringList{QLatin1String("GNUPGHOME=") + keys,
                              QLatin1String("PATH=") + root.filePath(QStringLiteral("bin"))};
}
