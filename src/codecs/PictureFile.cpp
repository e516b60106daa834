// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/PictureFile.h"

#include "base/Stop.h"
#include "base/TrappedError.h"
#include "codecs/Codec.h"

#include <QCoreApplication>

namespace tarsel {

namespace {

/// Makes a stop end the question, at the latest before it begins.
class Question {
public:
    explicit Question(const std::stop_token& stop) : m_scope(stop) { raiseIfStopped(); }

private:
    StopScope m_scope;
};

} // namespace

PictureFile::PictureFile(const QString& path) : PictureFile(PictureSource::ofFile(path), path) {}

PictureFile::PictureFile(PictureSource source, QString name) :
    m_source(std::move(source)), m_name(std::move(name)), m_codec(codecForContent(m_source, m_name)) {}

const Codec& PictureFile::requireCodec() const {
    if (m_source.size() == 0)
        fail(ErrorNumber::UnreadableFile,
             QCoreApplication::translate("PictureFile", "%1: the file is empty").arg(m_name));
    if (!m_codec)
        fail(ErrorNumber::UnreadableFile,
             QCoreApplication::translate("PictureFile", "%1: not a picture of a known format").arg(m_name));
    return *m_codec;
}

QString PictureFile::formatName() const {
    return m_codec ? QString::fromLatin1(m_codec->name) : QString();
}

QString PictureFile::usualExtension() const {
    return m_codec ? m_codec->extensions.first() : QString();
}

PictureHeader PictureFile::header(const std::stop_token& stop) const {
    const Question question(stop);
    return requireCodec().header(m_source, m_name);
}

int PictureFile::pageCount(const std::stop_token& stop) const {
    const Question question(stop);
    return requireCodec().pageCount(m_source, m_name);
}

EmbeddedMetadata PictureFile::metadata(int page, const std::stop_token& stop) const {
    const Question question(stop);
    const Codec& codec = requireCodec();
    return codec.metadata ? codec.metadata(m_source, m_name, page) : EmbeddedMetadata{};
}

DecodedPicture PictureFile::decode(int page, const std::stop_token& stop) const {
    const Question question(stop);
    return requireCodec().decode(m_source, m_name, page);
}

ReducedPicture PictureFile::decodeReduced(const std::function<PixelSize(PixelSize)>& wanted,
                                          const std::stop_token& stop) const {
    const Question question(stop);
    const Codec& codec = requireCodec();
    if (!codec.decodeReduced) {
        DecodedPicture decoded = codec.decode(m_source, m_name, 1);
        const PixelSize size{decoded.picture.width(), decoded.picture.height()};
        return {std::move(decoded.picture), size, std::move(decoded.metadata), std::move(decoded.damage)};
    }
    const PictureHeader found = codec.header(m_source, m_name);
    return codec.decodeReduced(m_source, m_name, wanted({found.width, found.height}));
}

} // namespace tarsel
