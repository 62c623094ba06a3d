// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class Prompts;
class QWidget;

/** Reports that a program's package is missing. If the user agrees, it opens the package manager with this package. */
void offerMissingPackage(Prompts &prompts, const QString &package, QWidget *parent = nullptr);

/** Reports that an installed program did not start. */
void warnNotStarted(Prompts &prompts, const QString &program, QWidget *parent = nullptr);
