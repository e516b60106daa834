// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tasks/TaskList.h"

#include <QString>

namespace tarsel::modSaveOpenImageList {

inline const QString taskFileExtension = QStringLiteral(".tbf");
bool isTaskFile(const QString& path); ///< by its extension

/// Replaces the list by the rows of a .tbf file. The old rows are gone even when the reading fails, and the
/// rows before the failing one stay. Raises: 53, 70 a file that can't be read; 62 too few fields in the
/// last record; 13, 6 a kind that is not a 16-bit number; 5 a key that has no icon. The description names the
/// file, and the record from 1.
void readTaskBasket(const QString& path, TaskList& tasks, bool genericIcons = false);

/// Writes the list to a .tbf file; ".tbf" is appended to a path without it. False with no rows. Errors
/// are trapped as "modSaveOpenImageList.fncSaveTaskBasket"; then, and with no rows, the message "Error saving
/// editing list!" is shown. A task with a double quote is named in a message; the list stays unsaved then.
bool fncSaveTaskBasket(const QString& path, TaskList& tasks);

/// Replaces the list by the rows of a .tbf file. Errors are trapped as
/// "modSaveOpenImageList.fncOpenTaskBasket", the message "Error opening editing list!" is shown, and the
/// result is false; the rows read so far stay. With `genericIcons` all rows get the icon "generic".
bool fncOpenTaskBasket(const QString& path, TaskList& tasks, bool genericIcons = false);

} // namespace tarsel::modSaveOpenImageList
