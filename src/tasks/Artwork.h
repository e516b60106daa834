// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tasks/TaskRow.h"

namespace tarsel {

/// Image frames, masks and shadows are painted with pictures that this version does not include.
bool needsArtwork(int kind, const TaskRow& row);

/// That the artwork of a kind is missing.
QString missingArtworkText(int kind);

} // namespace tarsel
