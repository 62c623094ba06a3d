// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>
#include <QString>

#include <cstdio>

/**
 * rename(2): unlike Qt's renaming it replaces what lies at `to`, and never copies. False with the reason in errno when
 * it fails.
 */
inline bool renamePath(const QString &from, const QString &to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}
