// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>

class QObject;

/**
 * Opens the folder of a file in the user's file manager, with the file selected where the file manager can do that
 * (org.freedesktop.FileManager1). Waits for nothing. `failed` is called in the thread of `context`, which must be the
 * interface thread, when no program opens folders.
 */
void veltShowInFileManager(const QString &file, QObject *context, const std::function<void()> &failed);
