// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"

#include <QString>
#include <functional>
#include <optional>

namespace tarsel {

/// The save dialog for a file whose name is completed afterwards: `writtenPath` returns, for a filter index
/// and the path as typed, the file that will be written. The dialog asks before it replaces the path as
/// typed; where another file would be replaced, this asks, and No opens the dialog again.
std::optional<FileDialogChoice>
saveFileDialogFor(FileDialogRequest request,
                  const std::function<QString(int filterIndex, const QString& path)>& writtenPath);

} // namespace tarsel
