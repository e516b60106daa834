#pragma once

#include "tasks/TaskList.h"

#include <QString>

namespace tarsel::modSaveOpenImageList {

/// Writes the list to a .tbf file; ".tbf" is appended to a path without it. False with no rows. Errors are
/// shown as the message "Error saving editing list!" and give false.
bool fncSaveTaskBasket(const QString& path, const TaskList& tasks);

/// Replaces the list by the rows of a .tbf file. Errors are shown as the message "Error opening editing
/// list!" and give false; the rows read so far stay. With `genericIcons` all rows get the icon "generic".
bool fncOpenTaskBasket(const QString& path, TaskList& tasks, bool genericIcons = false);

} // namespace tarsel::modSaveOpenImageList
