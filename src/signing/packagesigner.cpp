// SPDX-License-Identifier: GPL-3.0-or-later
#include "signing/packagesigner.h"

PackageSigner::~PackageSigner() = default;
