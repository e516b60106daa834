// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/ImageBox.h"
#include "tasks/TaskColumns.h"
#include "tasks/frmFrameDummy.h"
#include "tasks/modProcessTasks.h"
#include "tasks/steps/Steps.h"

namespace tarsel {

/// A transparent colour that an earlier row has set stays in force.
void steps::shadow(ImageBox& box, const TaskRow& row) {
    box.MergeTransparency = 0;
    modProcessTasks::subPaintFrame(box, row[column::Shadow::number] + frmFrameDummy::frameCount, 1, false);
}

} // namespace tarsel
