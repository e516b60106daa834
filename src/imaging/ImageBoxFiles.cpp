// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/ImageBox.h"

#include "base/IgnoringErrors.h"
#include "base/SafeFileWriter.h"
#include "base/Stop.h"
#include "codecs/Formats.h"
#include "codecs/PictureFile.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFileInfo>
#include <mutex>

namespace tarsel {

namespace {

QString extensionOf(const QString& path) {
    return QFileInfo(path).suffix().toLower();
}

/// The picture merged last: a batch lays the same watermark on every picture.
class MergedPictures {
public:
    /// Decodes outside of the lock, so that no thread waits for another one's file.
    Picture load(const QString& path) {
        const QFileInfo file(path);
        const Picture known = kept(path, file);
        if (!known.isNull())
            return known;
        Picture read = PictureFile(path).decode().picture;
        keep(path, file, read);
        return read;
    }

private:
    /// A null picture when it is another one; that one goes, to make room.
    Picture kept(const QString& path, const QFileInfo& file) {
        const std::lock_guard lock(m_mutex);
        if (path != m_path || file.lastModified() != m_modified || file.size() != m_size)
            m_picture = {};
        return m_picture;
    }
    void keep(const QString& path, const QFileInfo& file, const Picture& picture) {
        const std::lock_guard lock(m_mutex);
        m_picture = picture;
        m_path = path;
        m_modified = file.lastModified();
        m_size = file.size();
    }

    std::mutex m_mutex;
    QString m_path;
    QDateTime m_modified;
    qint64 m_size = 0;
    Picture m_picture;
};

MergedPictures& mergedPictures() {
    static MergedPictures pictures;
    return pictures;
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
    DecodedPicture decoded = file.decode(page);
    raiseIfStopped();
    m_picture = std::move(decoded.picture);
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
    const QByteArray encoded = encodePicture(extension, m_picture, saveSettings(), m_metadata.blocks());
    raiseIfStopped();
    writeFileSafely(path, encoded);
}

void ImageBox::MergeFile(const QString& path) {
    Picture merged;
    try {
        merged = mergedPictures().load(path);
    } catch (const TrappedError& error) {
        if (error.number != ErrorNumber::UnreadableFile)
            throw;
        fail(ErrorNumber::InvalidPicture, error.description);
    }
    MergeHandle(merged);
}

} // namespace tarsel
