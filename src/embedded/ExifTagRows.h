// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "embedded/ExifBlock.h"

#include <span>

namespace tarsel {

/// Number, name and usual type of one attribute.
struct ExifTagRow {
    quint16 tag;
    const char* name;
    ExifType type;
};

/// The attributes of a directory, by rising number. Empty for the thumbnail, which is not listed.
std::span<const ExifTagRow> exifTagRows(ExifGroup group);

} // namespace tarsel
