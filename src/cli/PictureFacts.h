// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "codecs/PictureHeader.h"

#include <QString>
#include <optional>

namespace tarsel::cli {

/// What `info` reports of one picture.
struct PictureFacts {
    QString path;
    QString reason; ///< why it could not be decoded; empty when it was
    QString damage; ///< what is wrong with a file that could be read in part; empty for a sound one
    QString format; ///< "JPEG"; empty for unknown content
    std::optional<PictureHeader> header;
    int width = 0; ///< as decoded
    int height = 0;
    int bitsPerPixel = 0;
    int pages = 0;
    ListView exif;
    ListView iptc;
};

/// Never raises: `reason` says what failed.
void readPictureFacts(const QString& path, PictureFacts& facts);

QString jsonOf(const PictureFacts& facts);
QString textOf(const PictureFacts& facts);

} // namespace tarsel::cli
