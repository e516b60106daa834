// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"
#include "players/effects/Canvas.h"

namespace tarsel {

/// The picture as an effect takes it: on white, with no more pixels than the box has on either side. Takes as
/// long for a large picture as for a small one: it averages some of the pixels.
players::Picture effectPicture(const Picture& picture, int mostWidth, int mostHeight);

} // namespace tarsel
