// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/PictureHeader.h"

#include <QString>
#include <optional>
#include <stop_token>

namespace tarsel {

/// What a picture file says of itself, without decoding its pixels. Nothing when the file can't be read, its
/// content is unknown or its header makes no
/// sense. Error 18 once a stop is requested.
std::optional<PictureHeader> readPictureHeader(const QString& path, const std::stop_token& stop = {});

} // namespace tarsel
