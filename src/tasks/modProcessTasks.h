// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ErrorReport.h"
#include "base/ListView.h"
#include "imaging/ImageBox.h"
#include "tasks/TaskList.h"

#include <QPoint>
#include <optional>
#include <vector>

namespace tarsel::modProcessTasks {

/// Replays the rows of `rows` (lvEditBatch) on the picture in `box`, top to bottom. With `runAll` false the
/// run ends after the selected row of `list`, or of `previewList` while `editing` is on and there is one. A
/// failing step ends the run at its row: the error names the row, goes to GlobalErrorHandler as of
/// "subProcessPages", isn't raised, and its report is returned. For the main thread: events run between the
/// rows, and the pointer shows that the program is busy.
[[nodiscard]] std::optional<ErrorReport> subProcessPages(const ListView& list, const ListView& rows,
                                                         ImageBox& box, const ListView* previewList,
                                                         bool runAll, bool editing = false);

/// The rows that such a run replays, as the lists are now: for replayRows on another thread.
std::vector<TaskRow> rowsToReplay(const ListView& list, const ListView& rows, const ListView* previewList,
                                  bool runAll, bool editing = false);

/// Where a text of a named position (0 to 8) stands on the picture of `box`, with the box's present font and
/// alignment. Orientation 1 is vertical.
QPoint subTextPosition(quint8 orientation, int position, const ImageBox& box, const QString& text);

/// Composes a border of the pieces of a frame (0 to 7) or a shadow (8 to 15), by the merge settings of `box`.
/// The canvas grows by it when `resizeCanvas` is 1, else it covers the picture's edge. `corners` adds the
/// strip ends of frame 4.
void subPaintFrame(ImageBox& box, int number, int resizeCanvas, bool corners);

} // namespace tarsel::modProcessTasks
