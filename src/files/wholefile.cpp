// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/wholefile.h"

#include <QByteArray>
#include <QSaveFile>

QString WholeFile::replace(const QString &path, const QByteArray &contents)
{
    QSaveFile file(path);
    // The destructor discards a file that was not committed.
    const bool isDone = file.open(QIODevice::WriteOnly) && writeOut(file, contents) && file.commit();
    return isDone ? QString() : file.errorString();
}

bool WholeFile::writeOut(QFileDevice &device, const QByteArray &contents)
{
    return device.write(contents) == contents.size() && device.flush();
}
