// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/ImageBox.h"

#include "base/ErrorTrap.h"
#include "base/SafeFileWriter.h"
#include "codecs/PictureFile.h"

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
    Picture load(const QString& path) {
        const QFileInfo facts(path);
        const std::lock_guard lock(m_mutex);
        if (m_picture.isNull() || path != m_path || facts.lastModified() != m_modified ||
            facts.size() != m_size)
            read(path, facts);
        return m_picture;
    }

private:
    void read(const QString& path, const QFileInfo& facts) {
        m_picture = {};
        m_picture = PictureFile(path).decode().picture;
        m_path = path;
        m_modified = facts.lastModified();
        m_size = facts.size();
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

int ImageBox::PageCount(const QString& path) {
    int pages = 1;
    ignoringErrors([&] { pages = PictureFile(path).pageCount(); });
    return pages;
}

void ImageBox::LoadFromFile(const QString& path) {
    Clear();
    m_loadFailed = true;
    LoadPage(PictureFile(path), PageNumber);
}

void ImageBox::LoadPage(const PictureFile& file, int page) {
    Clear();
    m_loadFailed = true;
    DecodedPicture decoded = file.decode(page);
    m_picture = std::move(decoded.picture);
    m_metadata = MetadataStore(std::move(decoded.metadata));
    m_loadDamage = std::move(decoded.damage);
    m_loadFailed = false;
}

void ImageBox::SaveToFile(const QString& path) {
    requireImage();
    const Codec* codec = codecForExtension(extensionOf(path));
    if (!codec || !codec->encode)
        fail(ErrorNumber::InvalidCall, path + QStringLiteral(": no writer for this format"));
    writeFileSafely(path, codec->encode(m_picture, saveSettings(), m_metadata.blocks()));
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
