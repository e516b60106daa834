// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/ImageBox.h"
#include "tasks/steps/Steps.h"

namespace tarsel {

void steps::invert(ImageBox& box, const TaskRow&) {
    box.Negative();
}

} // namespace tarsel
