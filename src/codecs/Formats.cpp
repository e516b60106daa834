// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/Formats.h"

#include "codecs/Codec.h"
#include "codecs/ColorProfile.h"
#include "codecs/EncoderColors.h"

#include <algorithm>
#include <array>

namespace tarsel {

QStringList writableExtensions() {
    QStringList extensions;
    for (const Codec& codec : codecs())
        if (codec.encode)
            extensions += codec.extensions;
    return extensions;
}

bool isWritable(const QString& extension) {
    const Codec* codec = codecForExtension(extension);
    return codec && codec->encode;
}

QString usualExtension(const QString& extension) {
    const Codec* codec = codecForExtension(extension);
    return codec ? codec->extensions.first() : QString();
}

bool keepsTransparency(const QString& extension) {
    static const QStringList names{QStringLiteral("GIF"), QStringLiteral("PNG"), QStringLiteral("PSD"),
                                   QStringLiteral("TIFF")};
    const Codec* codec = codecForExtension(extension);
    return codec && names.contains(QLatin1String(codec->name));
}

/// Files of gray values, PCX and WBMP have no place for a profile of colours.
static bool carriesProfile(const Codec& codec, ColorFormat format) {
    static const std::array colored{ColorFormat::TrueColor, ColorFormat::Colors256, ColorFormat::Colors16};
    static const QStringList without{QStringLiteral("PCX"), QStringLiteral("WBMP")};
    return std::ranges::find(colored, format) != colored.end() &&
           !without.contains(QLatin1String(codec.name));
}

QByteArray encodePicture(const QString& extension, const Picture& picture, const SaveSettings& settings,
                         const EmbeddedMetadata& metadata) {
    if (!isWritable(extension))
        return {};
    const Codec& codec = *codecForExtension(extension);
    if (carriesProfile(codec, colorFormatOf(settings)))
        return codec.encode(picture, settings, metadata);
    EmbeddedMetadata fitting = metadata;
    fitting.iccProfile.clear();
    return codec.encode(converted(picture, metadata.iccProfile), settings, fitting);
}

} // namespace tarsel
