// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/ImageBox.h"

#include "base/IgnoringErrors.h"
#include "base/SafeFileWriter.h"
#include "base/Stop.h"
#include "codecs/ColorProfile.h"
#include "codecs/Formats.h"
#include "codecs/MetadataWriter.h"
#include "codecs/PdfDocument.h"
#include "codecs/PictureFile.h"
#include "codecs/TiffAppend.h"
#include "imaging/MergedPictures.h"
#include "imaging/SaveFormats.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <utility>

namespace tarsel {

namespace {

QString extensionOf(const QString& path) {
    return QFileInfo(path).suffix().toLower();
}

} // namespace

int ImageBox::PageCount(const QString& path, const std::stop_token& stop) {
    int pages = 1;
    ignoringErrors([&] { pages = PictureFile(path).pageCount(stop); });
    raiseIfStopped(stop);
    return pages;
}

void ImageBox::LoadFromFile(const QString& path, const std::stop_token& stop) {
    const StopScope scope(stop);
    Clear();
    m_loadFailed = true;
    raiseIfStopped();
    LoadPage(PictureFile(path), PageNumber, stop);
}

void ImageBox::LoadPage(const PictureFile& file, int page, const std::stop_token& stop) {
    const StopScope scope(stop);
    Clear();
    m_loadFailed = true;
    raiseIfStopped();
    takeDecoded(file.decode(page));
}

void ImageBox::LoadReduced(const PictureFile& file, const std::function<PixelSize(PixelSize)>& drawn,
                           const std::stop_token& stop) {
    const StopScope scope(stop);
    Clear();
    m_loadFailed = true;
    raiseIfStopped();
    ReducedPicture reduced = file.decodeReduced(drawn);
    takeDecoded({std::move(reduced.picture), std::move(reduced.metadata), std::move(reduced.damage)});
    setFullSize(reduced.sourceSize);
}

void ImageBox::takeDecoded(DecodedPicture decoded) {
    raiseIfStopped();
    pictureToChange() = std::move(decoded.picture);
    m_metadata = MetadataStore(std::move(decoded.metadata));
    m_loadDamage = std::move(decoded.damage);
    m_loadFailed = false;
}

void ImageBox::SaveToFile(const QString& path, const std::stop_token& stop) {
    const StopScope scope(stop);
    requireImage();
    const QString extension = extensionOf(path);
    if (!isWritable(extension))
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("ImageBoxFiles", "%1: no writer for this format").arg(path));
    raiseIfStopped();
    const QByteArray bytes = encoded(extension);
    raiseIfStopped();
    writeFileSafely(path, bytes);
}

void ImageBox::LoadMetadataOnly(const QString& path) {
    m_metadataStamp = FileStamp::of(path);
    const PictureFile file(path);
    if (!file.isRecognised())
        fail(ErrorNumber::InvalidPicture,
             QCoreApplication::translate("ImageBoxFiles", "%1: unknown content").arg(path));
    m_metadata = MetadataStore(file.metadata(PageNumber));
}

void ImageBox::SaveMetadataOnly(const QString& path) {
    saveMetadata(path, PageNumber, m_metadata.blocks(), std::exchange(m_metadataStamp, {}));
}

QByteArray ImageBox::encoded(const QString& extension) const {
    requireImage();
    const QString format = usualExtension(extension.toLower());
    if (!isWritable(format))
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("ImageBoxFiles", "%1: no writer for this format").arg(extension));
    const SaveSettings settings = saveSettings();
    EmbeddedMetadata blocks = m_metadata.blocks();
    if (!m_encoded || m_encoded->format != format || m_encoded->settings != settings ||
        m_encoded->metadata != blocks) {
        m_encoded.reset(); // first the room, then the new bytes
        QByteArray bytes = encodePicture(format, m_picture, settings, blocks);
        m_encoded = Encoded{format, settings, std::move(blocks), std::move(bytes)};
    }
    return m_encoded->bytes;
}

qint64 ImageBox::EncodedSize(int format) const {
    const auto formats = saveFormats();
    if (format < 0 || std::size_t(format) >= formats.size())
        fail(ErrorNumber::SubscriptOutOfRange,
             QCoreApplication::translate("ImageBoxFiles", "format %1").arg(format));
    return encoded(QLatin1String(formats[std::size_t(format)].extension)).size();
}

void ImageBox::AddPageTiff(const QString& path, const QString& title, int) {
    requireImage();
    appendTiffPage(path, title, m_picture, saveSettings(), m_metadata.blocks());
}

void ImageBox::AddPagePdf(const QString& path, const QString& title, int) {
    requireImage();
    const SaveSettings settings = saveSettings();
    const EmbeddedMetadata blocks = m_metadata.blocks();
    writeFileSafely(path, QFile::exists(path)
                              ? withPdfPage(readWholeFile(path), path, m_picture, settings, blocks)
                              : newPdf(m_picture, settings, blocks, title));
}

void ImageBox::MergeFile(const QString& path) {
    MergedPicture merged;
    try {
        merged = MergedPictures::ofProcess().load(path);
    } catch (const TrappedError& error) {
        if (error.number != ErrorNumber::UnreadableFile)
            throw;
        fail(ErrorNumber::InvalidPicture, error.description);
    }
    const QByteArray profile = m_metadata.blocks().iccProfile;
    mergeLayer(converted(merged.picture, merged.iccProfile, profile),
               converted(resolveColor(MergeTransparentColor), merged.iccProfile, profile));
}

} // namespace tarsel
