// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/ImageBox.h"
#include "tasks/TaskColumns.h"
#include "tasks/steps/Steps.h"

namespace tarsel {

/// A percentage is replayed as an integer: 12.5 as 12.
void steps::resize(ImageBox& box, const TaskRow& row) {
    using column::Resize;
    if (row[Resize::toSize])
        box.ResizeTo(row[Resize::width], row[Resize::height]);
    else
        box.Scale(float(row[Resize::percent]));
}

} // namespace tarsel
