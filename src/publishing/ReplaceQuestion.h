// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"

namespace tarsel {

/// Whether there is no such file, or the user wants it replaced.
bool mayReplace(const QString& path, const QString& question);

} // namespace tarsel
