// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "imaging/ImageBox.h"

#include <QPoint>

namespace tarsel::modProcessTasks {

/// Replays the rows of `rows` (lvEditBatch) on the picture in `box`, top to bottom. With `runAll` false the
/// run ends after the selected row of `list`, or of `previewList` while `editing` is on and there is one. A
/// failing step ends the run at its row: the error names the row, goes to GlobalErrorHandler as of
/// "subProcessPages", and the caller is not told by an exception; the result is false then, for callers that
/// report on rows.
bool subProcessPages(const ListView& list, const ListView& rows, ImageBox& box, const ListView* previewList,
                     bool runAll, bool editing = false);

/// Where a text of a named position (0 to 8) stands on the picture of `box`, with the box's present font and
/// alignment. Orientation 1 is vertical.
QPoint subTextPosition(quint8 orientation, int position, const ImageBox& box, const QString& text);

} // namespace tarsel::modProcessTasks
