// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/PictureFile.h"

#include "base/TrappedError.h"

namespace tarsel {

PictureFile::PictureFile(const QString& path) : PictureFile(PictureSource::ofFile(path), path) {}

PictureFile::PictureFile(PictureSource source, QString name) :
    m_source(std::move(source)), m_name(std::move(name)), m_codec(codecForContent(m_source, m_name)) {}

const Codec& PictureFile::requireCodec() const {
    if (m_source.size() == 0)
        fail(ErrorNumber::UnreadableFile, m_name + QStringLiteral(": the file is empty"));
    if (!m_codec)
        fail(ErrorNumber::UnreadableFile, m_name + QStringLiteral(": not a picture of a known format"));
    return *m_codec;
}

PictureHeader PictureFile::header() const {
    return requireCodec().header(m_source, m_name);
}

int PictureFile::pageCount() const {
    return requireCodec().pageCount(m_source, m_name);
}

EmbeddedMetadata PictureFile::metadata() const {
    const Codec& codec = requireCodec();
    return codec.metadata ? codec.metadata(m_source, m_name) : EmbeddedMetadata{};
}

DecodedPicture PictureFile::decode(int page) const {
    return requireCodec().decode(m_source, m_name, page);
}

} // namespace tarsel
