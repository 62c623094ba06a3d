// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>

/**
 * Reads the control file of a package (deb(5)) in this process. It only reads packages in the form that the packaging
 * tools write. For an unusual, large or damaged package the result is empty, and the caller must ask dpkg, which runs
 * three programs but has the right error message. Memory and time are limited for every file.
 */
std::optional<QByteArray> debControl(const QString &fileName, const std::function<bool()> &stopped = {});
