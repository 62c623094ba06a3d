// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/dependencychecker.h"

DependencyChecker::~DependencyChecker() = default;
