// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Conversions.h"
#include "base/TrappedError.h"
#include "tasks/Artwork.h"
#include "tasks/steps/Steps.h"

namespace tarsel {

/// A row that needs missing artwork ends the run: a picture without its frame must not pass for a framed one.
void steps::missingArtwork(ImageBox&, const TaskRow& row) {
    fail(ErrorNumber::InvalidCall, missingArtworkText(toInt16(row.kind)));
}

} // namespace tarsel
