// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tarsel::cli {

// What shells read to complete the words of `tarsel`, made of the table of commands: the complete file.
QString bashCompletion();
QString zshCompletion();
QString fishCompletion();

/// A text in single quotes, as POSIX shells and zsh take it.
QString shellQuoted(const QString& text);

} // namespace tarsel::cli
