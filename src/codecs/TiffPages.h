// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/PictureSource.h"

#include <cstdint>
#include <vector>

namespace tarsel {

/// Where the directory of a page starts, and how many entries it has.
struct TiffPage {
    std::uint64_t offset = 0;
    std::uint64_t entries = 0;
};

/// The pages of a TIFF file, with offsets of 32 or 64 bits, in the order of their chain. The chain ends where
/// it leaves the file or returns to a directory.
std::vector<TiffPage> readTiffPages(const PictureSource& source);

} // namespace tarsel
