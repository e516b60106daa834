// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/MergedPictures.h"

#include "codecs/PictureFile.h"

#include <QFileInfo>

namespace tarsel {

MergedPictures& MergedPictures::ofProcess() {
    static MergedPictures pictures;
    return pictures;
}

/// Decodes outside of the lock, so that no thread waits for another one's file.
MergedPicture MergedPictures::load(const QString& path) {
    const QFileInfo file(path);
    MergedPicture known = kept(path, file);
    if (!known.picture.isNull())
        return known;
    DecodedPicture read = PictureFile(path).decode();
    MergedPicture merged{std::move(read.picture), std::move(read.metadata.iccProfile)};
    keep(path, file, merged);
    return merged;
}

/// A null picture when it is another one; that one goes, to make room.
MergedPicture MergedPictures::kept(const QString& path, const QFileInfo& file) {
    const std::lock_guard lock(m_mutex);
    if (path != m_path || file.lastModified() != m_modified || file.size() != m_size)
        m_merged = {};
    return m_merged;
}

void MergedPictures::keep(const QString& path, const QFileInfo& file, const MergedPicture& merged) {
    const std::lock_guard lock(m_mutex);
    m_merged = merged;
    m_path = path;
    m_modified = file.lastModified();
    m_size = file.size();
}

} // namespace tarsel
