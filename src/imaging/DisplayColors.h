// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/ColorProfile.h"
#include "embedded/MetadataStore.h"

namespace tarsel {

/// From the colours of a picture with these metadata to sRGB, which screens are taken for.
RgbConversion displayConversion(const MetadataStore& metadata);

/// The picture after that conversion.
Picture inDisplayColors(const Picture& picture, const MetadataStore& metadata);

} // namespace tarsel
