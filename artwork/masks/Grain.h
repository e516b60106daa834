// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tarsel::artwork {

/// Random numbers from 0 to 1 for the pixels of a mask, as unlike their neighbours as possible: what is
/// compared with them gets a fine, even grain.
float grainAt(int x, int y);

} // namespace tarsel::artwork
