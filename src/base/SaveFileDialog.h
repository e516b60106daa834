// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"

#include <QString>
#include <functional>
#include <optional>

namespace tarsel {

/// The save dialog for a file whose name is completed afterwards: `writtenPath` returns, for a filter index
/// and the path as typed, the file that will be written. This asks before that file is replaced, and No opens
/// the dialog again. `lossBy` says what is lost when it is: a sentence for the question, or nothing.
std::optional<FileDialogChoice>
saveFileDialogFor(FileDialogRequest request,
                  const std::function<QString(int filterIndex, const QString& path)>& writtenPath,
                  const std::function<QString(const QString& written)>& lossBy = {});

/// The path with that extension (".xiff") at its end, unless it ends so in any case.
QString withExtension(const QString& path, const QString& extension);

/// The same for a file of one kind: the path as it will be written; nothing when the user left.
std::optional<QString> savePathFor(const FileDialogRequest& request, const QString& extension);

} // namespace tarsel
