// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tasks/TaskList.h"

#include <QPoint>

/// The replay of each kind of task, one file each; the table taskKinds() names them.
namespace tarsel::steps {

void flip(ImageBox& box, const TaskRow& row);
void rotate(ImageBox& box, const TaskRow& row);
void resize(ImageBox& box, const TaskRow& row);
void blur(ImageBox& box, const TaskRow& row);
void contrast(ImageBox& box, const TaskRow& row);
void brightness(ImageBox& box, const TaskRow& row);
void sharpen(ImageBox& box, const TaskRow& row);
void crop(ImageBox& box, const TaskRow& row);
void watermark(ImageBox& box, const TaskRow& row);
/// With the second picture's corner at `place` where it is to have a place.
void mergeAt(ImageBox& box, const TaskRow& row, QPoint place);
void text(ImageBox& box, const TaskRow& row);
/// Writes the settings of a Text row to the box, and returns where its text is to be drawn.
QPoint prepareText(ImageBox& box, const TaskRow& row);
void invert(ImageBox& box, const TaskRow& row);
void canvas(ImageBox& box, const TaskRow& row);
void frame(ImageBox& box, const TaskRow& row);
void mask(ImageBox& box, const TaskRow& row);
/// A preview fits the mask to every picture; a replay doesn't where one side has the mask's length already.
void maskInPreview(ImageBox& box, const TaskRow& row);
void shadow(ImageBox& box, const TaskRow& row);

} // namespace tarsel::steps
