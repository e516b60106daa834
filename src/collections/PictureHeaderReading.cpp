// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/PictureHeaderReading.h"

#include "base/IgnoringErrors.h"
#include "base/Stop.h"
#include "codecs/PictureFile.h"

namespace tarsel {

std::optional<PictureHeader> readPictureHeader(const QString& path, const std::stop_token& stop) {
    std::optional<PictureHeader> header;
    ignoringErrors([&] { header = PictureFile(path).header(stop); });
    raiseIfStopped(stop);
    if (header && (header->width <= 0 || header->height <= 0))
        header.reset();
    return header;
}

} // namespace tarsel
