// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Conversions.h"
#include "base/TrappedError.h"
#include "tasks/steps/Steps.h"

namespace tarsel {

/// Image frames, masks and shadows are painted with pictures that this version does not carry. A row of such
/// a kind ends the run: a picture without its frame must not pass as one that has it.
void steps::missingArtwork(ImageBox&, const TaskRow& row) {
    fail(
        ErrorNumber::InvalidCall,
        QStringLiteral("%1 artwork is not part of this program yet").arg(taskDisplayName(toInt16(row.kind))));
}

} // namespace tarsel
