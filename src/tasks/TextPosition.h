// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imaging/fncLoadPicture.h"

#include <QPoint>

namespace tarsel {

/// Where a text of a named position stands: 0 to 8, row by row from the top left corner, flush with the
/// edges. Horizontal text: x is the anchor that `alignment` names, 0 left, 1 centre, 2 right. Vertical text
/// (orientation other than 0) runs downward, so that its height takes up width. Halves go to the even
/// neighbour. Error 5 for an unknown position or alignment.
QPoint textPosition(int orientation, int position, int alignment, Size picture, Size text);

} // namespace tarsel
