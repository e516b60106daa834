// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "embedded/MetadataStore.h"
#include "pixels/Picture.h"

namespace tarsel {

/// The picture in sRGB, which screens are taken for.
Picture inDisplayColors(const Picture& picture, const MetadataStore& metadata);
Picture inDisplayColors(const Picture& picture, const QByteArray& iccProfile);

/// The colour profile of the pixels where it makes a difference on the screen, else nothing.
QByteArray visibleProfile(const MetadataStore& metadata);
QByteArray visibleProfile(const QByteArray& iccProfile);

} // namespace tarsel
