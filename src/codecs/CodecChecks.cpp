// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/CodecChecks.h"

#include "base/TrappedError.h"
#include "codecs/PictureLimit.h"

#include <QCoreApplication>

namespace tarsel {

namespace {

/// Up to this size a picture costs too little to be a trap, however short its file is.
constexpr std::int64_t harmlessPixels = 20'000'000;

} // namespace

void failDecoding(const FileUnderTest& file, const QString& fact, std::source_location where) {
    fail(ErrorNumber::UnreadableFile,
         QCoreApplication::translate("CodecChecks", "%1 file %2: %3")
             .arg(QLatin1String(file.format), file.name, fact),
         where);
}

void requirePlausibleSize(const FileUnderTest& file, std::int64_t width, std::int64_t height,
                          std::int64_t pixelsPerByte) {
    const QString w = QString::number(width), h = QString::number(height);
    if (width < 1 || height < 1)
        failDecoding(file, QCoreApplication::translate("CodecChecks", "a size of %1 x %2 pixels").arg(w, h));
    if (width > largestPicture() || height > largestPicture() / width)
        failDecoding(file, QCoreApplication::translate("CodecChecks",
                                                       "%1 x %2 pixels exceed the limit of %3 million pixels")
                               .arg(w, h, QString::number(largestPicture() / 1'000'000)));
    const std::int64_t pixels = width * height;
    if (pixels > harmlessPixels && pixels / pixelsPerByte > file.bytes)
        failDecoding(
            file, QCoreApplication::translate("CodecChecks", "claims %1 x %2 pixels, but has only %3 bytes")
                      .arg(w, h, QString::number(file.bytes)));
}

} // namespace tarsel
