// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "embedded/MetadataStore.h"
#include "imaging/fncLoadPicture.h"

namespace tarsel {

/// The picture in sRGB, which screens are taken for.
Picture inDisplayColors(const Picture& picture, const MetadataStore& metadata);

/// The same, reduced to fit inside `limit` where it is larger. Transparency stays.
Picture forDisplay(const Picture& picture, const MetadataStore& metadata, Size limit);

} // namespace tarsel
