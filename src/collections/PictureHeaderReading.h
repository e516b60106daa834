// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/Codec.h"

#include <QString>
#include <optional>

namespace tarsel {

/// What a picture file says of itself, without decoding its pixels. Nothing when the file can't be read, its
/// content is unknown or its header makes no sense.
std::optional<PictureHeader> readPictureHeader(const QString& path);

} // namespace tarsel
