// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "cli/JsonLine.h"
#include "codecs/PictureHeader.h"

#include <QString>
#include <QStringList>
#include <optional>

namespace tarsel {
class ImageBox;
}

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

/// Each row as an object: the raw name when `named`, as EXIF rows have one, the label, the value.
QList<JsonLine> jsonOfRows(const ListView& rows, bool named);

QString jsonOf(const PictureFacts& facts);
QStringList linesOf(const PictureFacts& facts);

/// Loads a picture, or raises why it can't be read: the same reason in each command.
void loadPicture(ImageBox& box, const QString& path);

/// Why a picture that could not be added to a basket, or not with all of its pages, can't be read: its file
/// is read once more to find out.
QString unreadableReason(const QString& path);

} // namespace tarsel::cli
