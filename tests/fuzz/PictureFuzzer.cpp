// SPDX-License-Identifier: GPL-3.0-or-later
// The readers of picture files that run inside the program: JPEG, PNG, TIFF, BMP, PCX, PSD, and the headers
// and metadata of the formats that another process decodes.

#include "base/ErrorTrap.h"
#include "codecs/Codec.h"
#include "tests/fuzz/Fuzzers.h"

#include <cstdint>

using namespace tarsel;

namespace {

bool isDecodedElsewhere(const Codec& codec) {
    const QString& extension = codec.extensions.first();
    return extension == QLatin1String("gif") || extension == QLatin1String("wbmp");
}

} // namespace

void fuzz::readPicture(const QByteArray& bytes) {
    const QString name = QStringLiteral("fuzzed.wbmp"); // lets the format without a signature take part
    const Codec* codec = codecForContent(bytes, name);
    if (!codec)
        return;
    PictureHeader header;
    ignoringErrors([&] { header = codec->header(bytes, name); });
    if (codec->metadata)
        ignoringErrors([&] { codec->metadata(bytes, name); });
    const bool isSmall = std::int64_t(header.width) * header.height < 1'000'000; // speed is not the question
    if (isSmall && !isDecodedElsewhere(*codec))
        ignoringErrors([&] { codec->decode(bytes, name, 1); });
}
