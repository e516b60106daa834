// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/Formats.h"

#include "codecs/Codec.h"
#include "codecs/ColorProfile.h"
#include "codecs/EncoderColors.h"

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
    const Codec* codec = codecForExtension(extension);
    return codec && codec->keepsTransparency;
}

QByteArray encodePicture(const QString& extension, const Picture& picture, const SaveSettings& settings,
                         const EmbeddedMetadata& metadata) {
    if (!isWritable(extension))
        return {};
    const Codec& codec = *codecForExtension(extension);
    const FittedPicture fitted = fittedToFile(picture, settings, metadata, codec.holdsProfile);
    SaveSettings ofPicture = settings;
    ofPicture.BackColor =
        colorOf(converted(resolveColor(settings.BackColor), {}, fitted.metadata.iccProfile));
    return codec.encode(fitted.picture, ofPicture, fitted.metadata);
}

} // namespace tarsel
