// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/PictureHeaderReading.h"

#include "base/IgnoringErrors.h"

#include <QFile>

namespace tarsel {

namespace {

/// Behind thumbnails and profiles most headers end before this many bytes; some files keep theirs at the end.
constexpr qint64 UsualReach = qint64(256) * 1024;

std::optional<PictureHeader> headerOf(const QByteArray& bytes, const QString& path) {
    std::optional<PictureHeader> header;
    ignoringErrors([&] {
        if (const Codec* codec = codecForContent(bytes, path))
            header = codec->header(bytes, path);
    });
    if (header && (header->width <= 0 || header->height <= 0))
        header.reset();
    return header;
}

} // namespace

std::optional<PictureHeader> readPictureHeader(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    QByteArray bytes = file.read(UsualReach);
    std::optional<PictureHeader> header = headerOf(bytes, path);
    if (header || file.atEnd())
        return header;
    bytes += file.readAll();
    return headerOf(bytes, path);
}

} // namespace tarsel
