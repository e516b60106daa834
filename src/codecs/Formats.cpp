// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/Formats.h"

#include "codecs/Codec.h"

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

QByteArray encodePicture(const QString& extension, const Picture& picture, const SaveSettings& settings,
                         const EmbeddedMetadata& metadata) {
    return isWritable(extension) ? codecForExtension(extension)->encode(picture, settings, metadata)
                                 : QByteArray();
}

} // namespace tarsel
