// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/Codec.h"

#include "codecs/BmpCodec.h"
#include "codecs/Encoders.h"
#include "codecs/GifCodec.h"
#include "codecs/JpegCodec.h"
#include "codecs/MetafileCodec.h"
#include "codecs/PcxCodec.h"
#include "codecs/PngCodec.h"
#include "codecs/PsdCodec.h"
#include "codecs/TiffCodec.h"
#include "codecs/WbmpCodec.h"

#include <QFileInfo>
#include <algorithm>
#include <array>

namespace tarsel {

std::span<const Codec> codecs() {
    static const std::array table = {
        jpegCodec(), tiffCodec(), pngCodec(), bmpCodec(), gifCodec(), psdCodec(),
        pcxCodec(),  wbmpCodec(), wmfCodec(), emfCodec(), pdfCodec(),
    };
    return table;
}

const Codec* codecForContent(const PictureSource& source, const QString& path) {
    const QString extension = QFileInfo(path).suffix().toLower();
    const auto recognises = [&](const Codec& codec) {
        return codec.sniff(source) && (!codec.needsExtension || codec.extensions.contains(extension));
    };
    const auto found = std::ranges::find_if(codecs(), recognises);
    return found == codecs().end() ? nullptr : &*found;
}

const Codec* codecForExtension(const QString& extension) {
    const auto found = std::ranges::find_if(
        codecs(), [&](const Codec& codec) { return codec.extensions.contains(extension); });
    return found == codecs().end() ? nullptr : &*found;
}

} // namespace tarsel
