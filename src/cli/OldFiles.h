// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// Files of the user that a command replaces only with --overwrite.
namespace tarsel::cli {

/// Error 5, which names --overwrite.
[[noreturn]] void failForOldFile(const QString& path);
void requireFree(const QString& path); ///< the same where the name is taken

} // namespace tarsel::cli
