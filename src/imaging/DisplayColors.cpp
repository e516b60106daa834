// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/DisplayColors.h"

#include "codecs/ColorProfile.h"

namespace tarsel {

Picture inDisplayColors(const Picture& picture, const MetadataStore& metadata) {
    return inDisplayColors(picture, metadata.blocks().iccProfile);
}

Picture inDisplayColors(const Picture& picture, const QByteArray& iccProfile) {
    return converted(picture, iccProfile);
}

QByteArray visibleProfile(const MetadataStore& metadata) {
    return visibleProfile(metadata.blocks().iccProfile);
}

QByteArray visibleProfile(const QByteArray& iccProfile) {
    return iccProfile.isEmpty() || !RgbConversion(iccProfile).changesColors() ? QByteArray() : iccProfile;
}

} // namespace tarsel
