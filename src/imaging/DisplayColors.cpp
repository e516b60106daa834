// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/DisplayColors.h"

namespace tarsel {

RgbConversion displayConversion(const MetadataStore& metadata) {
    return RgbConversion(metadata.blocks().iccProfile);
}

Picture inDisplayColors(const Picture& picture, const MetadataStore& metadata) {
    return converted(picture, metadata.blocks().iccProfile);
}

} // namespace tarsel
