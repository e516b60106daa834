// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/PictureHeaderReading.h"

#include "base/IgnoringErrors.h"
#include "codecs/PictureFile.h"

namespace tarsel {

std::optional<PictureHeader> readPictureHeader(const QString& path) {
    std::optional<PictureHeader> header;
    ignoringErrors([&] { header = PictureFile(path).header(); });
    if (header && (header->width <= 0 || header->height <= 0))
        header.reset();
    return header;
}

} // namespace tarsel
