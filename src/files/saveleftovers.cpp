// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/saveleftovers.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

void SaveLeftovers::remove(const QString &fileName, Age age)
{
    constexpr int Minute = 60; // seconds
    const QFileInfo info(fileName);
    // QSaveFile appends letters in random case. A suffix that could be a word, such as "broken" or "Backup", may be the
    // user's.
    const QRegularExpression form(QLatin1Char('^') + QRegularExpression::escape(info.fileName())
                                  + QLatin1String("\\.(?![A-Z]?[a-z]+$|[A-Z]+$)[A-Za-z]{6}$"));
    const QFileInfoList files = info.dir().entryInfoList({info.fileName() + QLatin1String(".??????")},
                                                         QDir::Files | QDir::Hidden | QDir::NoSymLinks);
    for (const QFileInfo &file : files) {
        const bool isOld = age == Any || file.lastModified().secsTo(QDateTime::currentDateTime()) > Minute;
        if (isOld && form.match(file.fileName()).hasMatch())
            QFile::remove(file.filePath());
    }
}
