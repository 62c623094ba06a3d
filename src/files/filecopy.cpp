// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/filecopy.h"

#include "files/regularfile.h"
#include "files/replacingfile.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <vector>

QString copyFile(const QString &from, const QString &to, const std::function<bool()> &stopped)
{
    constexpr int BufferSize = 1 << 20;
    RegularFile source(from);
    if (!source.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return source.errorString();
    // A copy onto the file itself would cut its other hard links off.
    const QString target = QFileInfo(to).canonicalFilePath();
    if (!target.isEmpty() && target == QFileInfo(from).canonicalFilePath())
        return QCoreApplication::translate("copyFile", "This is the file itself.");
    ReplacingFile copy(to);
    if (!copy.open())
        return copy.errorString();
    std::vector<char> buffer(BufferSize);
    for (;;) {
        if (stopped())
            return {};
        const qint64 size = source.read(buffer.data(), BufferSize);
        if (size < 0)
            return source.errorString();
        if (size == 0)
            break;
        if (copy.device()->write(buffer.data(), size) != size)
            return copy.device()->errorString();
    }
    return copy.commit() ? QString() : copy.errorString();
}
