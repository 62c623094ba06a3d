// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class Prompts;
class QWidget;

/** Says that a program's package is missing and, if the user wants that, opens the package manager on it. */
void offerMissingPackage(Prompts &prompts, const QString &package, QWidget *parent = nullptr);

/** Says that a program did not start although it should be there. */
void warnNotStarted(Prompts &prompts, const QString &program, QWidget *parent = nullptr);
