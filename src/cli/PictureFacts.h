// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "codecs/Codec.h"

#include <QString>
#include <optional>

namespace tarsel::cli {

/// What `info` tells of one picture.
struct PictureFacts {
    QString path;
    QString reason; ///< why it could not be decoded; empty when it was
    QString format; ///< "JPEG"; empty for unknown content
    std::optional<PictureHeader> header;
    int width = 0; ///< as decoded
    int height = 0;
    int bitsPerPixel = 0;
    int pages = 0;
    ListView exif;
    ListView iptc;
};

/// Never raises: what fails is told in `reason`.
void readPictureFacts(const QString& path, PictureFacts& facts);

QString jsonOf(const PictureFacts& facts);
QString textOf(const PictureFacts& facts);

} // namespace tarsel::cli
