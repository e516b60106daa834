// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/DecodedPicture.h"
#include "codecs/PictureSource.h"

#include <functional>
#include <stop_token>

namespace tarsel {

struct Codec;

/// A picture file that is opened once and recognised once, by its content. Each question reads what it
/// needs: the header or one page of a large TIFF doesn't read the rest, and where its pages are is found out
/// once. Errors of the questions are those of Codec, 0x8000FFFF when no format recognises the content, and 18
/// once a stop is requested. Copies share what was read; several threads may ask one of them.
class PictureFile {
public:
    explicit PictureFile(const QString& path); ///< errors as PictureSource::ofFile
    /// `name` stands for the path in messages; its extension counts for a format without a signature.
    PictureFile(PictureSource source, QString name);

    const QString& name() const { return m_name; }
    const PictureSource& source() const { return m_source; }
    bool isRecognised() const { return m_codec; }
    QString formatName() const;     ///< "JPEG"; empty when the content is not recognised
    QString usualExtension() const; ///< "jpg"; empty like the name

    PictureHeader header(const std::stop_token& stop = {}) const;
    int pageCount(const std::stop_token& stop = {}) const;
    /// Empty for a format without metadata.
    EmbeddedMetadata metadata(int page = 1, const std::stop_token& stop = {}) const;
    DecodedPicture decode(int page = 1, const std::stop_token& stop = {}) const;
    /// The first page, for drawing it at the size that `wanted` makes of the full one: at least that large,
    /// and smaller than the full size where the format can decode so faster.
    ReducedPicture decodeReduced(const std::function<PixelSize(PixelSize)>& wanted,
                                 const std::stop_token& stop = {}) const;

private:
    const Codec& requireCodec() const;

    PictureSource m_source;
    QString m_name;
    const Codec* m_codec;
};

} // namespace tarsel
