// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/SaveSettings.h"
#include "embedded/EmbeddedMetadata.h"
#include "pixels/Picture.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

// Formats by extension: lower case, without the point.
namespace tarsel {

/// The extensions that encodePicture knows, in the order of the formats.
QStringList writableExtensions();
bool isWritable(const QString& extension);

/// The one that is usual for the same format: "jpg" for "jpeg". Empty for an unknown extension.
QString usualExtension(const QString& extension);

/// Whether the format keeps the transparency of a picture.
bool keepsTransparency(const QString& extension);

/// The bytes of a file with that extension. Empty when isWritable says no; otherwise errors as Codec::encode.
QByteArray encodePicture(const QString& extension, const Picture& picture, const SaveSettings& settings,
                         const EmbeddedMetadata& metadata);

} // namespace tarsel
