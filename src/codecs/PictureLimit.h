// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace tarsel {

/// The most pixels that a picture may claim to have, for all readers: what the memory of this process
/// allows, but at least 16,000 x 16,000, and at most Picture::maximumPixels. Found out once.
std::int64_t largestPicture();

/// The same for this much memory, in bytes.
std::int64_t largestPictureIn(std::int64_t memory);

/// The least of the machine's memory, the limit of the address space, and the limits of the control groups
/// that this process belongs to.
std::int64_t memoryOfProcess();

} // namespace tarsel
