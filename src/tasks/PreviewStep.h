// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imaging/ImageBox.h"
#include "tasks/TaskRow.h"

namespace tarsel {

// A preview runs the step of the replay. The few kinds that differ have a function of their own, which says
// how.

/// The row that is recorded of the options on a page, for a picture `start`: with what depends on the picture
/// and on the settings of its box.
TaskRow recordedRow(ImageBox& box, const Picture& start, TaskRow options);

/// Runs a row on the picture in the box as the preview of a task. Raises what the step raises.
void previewStep(ImageBox& box, const TaskRow& row);

/// Whether a task has something to show as soon as its page opens with these options.
bool previewsAtOnce(const TaskRow& options);

/// Whether a live preview shows a task as soon as its page opens: one of pieces to choose from.
bool showsAsItOpens(const TaskRow& options);

/// Whether previews may follow these options by themselves: not those of a selection that is being made on
/// the picture, nor without the picture to merge.
bool followsOptions(const TaskRow& options);

/// Whether a reduced picture looks the same after the step as the full one reduced after it. Nothing may
/// depend on lengths, which filters, texts and frames have in pixels.
bool looksTheSameReduced(const TaskRow& row);

/// Why nothing can be previewed: a region is to be selected first. Empty when there is one, and for other
/// tasks.
QString missingRegionText(const TaskRow& options);
/// Also for a region that has no pixel of the picture `start`, which an enlarged display has room for.
QString missingRegionText(const TaskRow& options, const ImageBox& box, const Picture& start);

/// Why a region recorded in the order in which it was dragged can't be cropped; empty when it can, and for
/// other tasks.
QString reversedRegionText(const TaskRow& recorded);

/// Why the picture to merge can't be previewed; empty when it can, and for other kinds.
QString missingPictureText(const TaskRow& row);

} // namespace tarsel
