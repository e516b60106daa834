// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/Codec.h"

namespace tarsel {

/// A picture file that is opened once and recognised once, by its content. Each question reads what it
/// needs: the header or one page of a large TIFF doesn't read the rest. Errors of the questions are those of
/// Codec, and 0x8000FFFF when no format recognises the content.
class PictureFile {
public:
    explicit PictureFile(const QString& path); ///< errors as PictureSource::ofFile
    /// `name` stands for the path in messages; its extension counts for a format without a signature.
    PictureFile(PictureSource source, QString name);

    const QString& name() const { return m_name; }
    const PictureSource& source() const { return m_source; }
    /// Null when the content is not recognised.
    const Codec* codec() const { return m_codec; }

    PictureHeader header() const;
    int pageCount() const;
    /// Empty for a format without metadata.
    EmbeddedMetadata metadata() const;
    DecodedPicture decode(int page = 1) const;

private:
    const Codec& requireCodec() const;

    PictureSource m_source;
    QString m_name;
    const Codec* m_codec;
};

} // namespace tarsel
