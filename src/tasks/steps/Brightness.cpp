// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/ImageBox.h"
#include "tasks/TaskColumns.h"
#include "tasks/steps/Steps.h"

namespace tarsel {

void steps::brightness(ImageBox& box, const TaskRow& row) {
    using Columns = column::Brightness;
    box.Brightness(row[Columns::level], row[Columns::red], row[Columns::green], row[Columns::blue]);
}

} // namespace tarsel
