// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/CodecChecks.h"

#include "base/TrappedError.h"
#include "pixels/Picture.h"

namespace tarsel {

namespace {

/// Up to this size a picture costs too little to be a trap, however short its file is.
constexpr std::int64_t HarmlessPixels = 20'000'000;

QString sizeText(std::int64_t width, std::int64_t height) {
    return QStringLiteral("%1 x %2 pixels").arg(width).arg(height);
}

} // namespace

void failDecoding(const FileUnderTest& file, const QString& fact, std::source_location where) {
    fail(ErrorNumber::UnreadableFile,
         QStringLiteral("%1 file %2: %3").arg(QLatin1String(file.format), file.name, fact), where);
}

void requirePlausibleSize(const FileUnderTest& file, std::int64_t width, std::int64_t height,
                          std::int64_t pixelsPerByte) {
    if (width < 1 || height < 1)
        failDecoding(file, QStringLiteral("a size of %1").arg(sizeText(width, height)));
    if (width > Picture::MaximumPixels || height > Picture::MaximumPixels / width)
        failDecoding(file, QStringLiteral("%1 are more than can be held").arg(sizeText(width, height)));
    const std::int64_t pixels = width * height;
    if (pixels > HarmlessPixels && pixels / pixelsPerByte > file.bytes)
        failDecoding(
            file,
            QStringLiteral("claims %1, but has only %2 bytes").arg(sizeText(width, height)).arg(file.bytes));
}

} // namespace tarsel
