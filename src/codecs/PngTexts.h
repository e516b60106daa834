// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/PictureSource.h"
#include "pixels/Picture.h"

#include <QMap>

namespace tarsel {

/// Text chunks of a PNG file by keyword.
using PngTexts = QMap<QByteArray, QByteArray>;

/// The text chunks in front of the pixels. `name` stands for the file in messages. Error 0x8000FFFF.
PngTexts pngTexts(const PictureSource& source, const QString& name);

/// True colour, with the transparency of the picture. Texts are Latin-1.
QByteArray encodePngWithTexts(const Picture& picture, const PngTexts& texts);

} // namespace tarsel
