// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/MergedPictures.h"

#include "codecs/PictureFile.h"

namespace tarsel {

MergedPictures& MergedPictures::ofProcess() {
    static MergedPictures pictures;
    return pictures;
}

/// Decodes outside of the lock, so that no thread waits for another one's file.
MergedPicture MergedPictures::load(const QString& path) {
    const FileStamp stamp = FileStamp::of(path);
    MergedPicture known = kept(path, stamp);
    if (!known.picture.isNull())
        return known;
    DecodedPicture read = PictureFile(path).decode();
    MergedPicture merged{std::move(read.picture), std::move(read.metadata.iccProfile)};
    keep(path, stamp, merged);
    return merged;
}

/// A null picture when it is another one; that one goes, to make room.
MergedPicture MergedPictures::kept(const QString& path, const FileStamp& stamp) {
    const std::lock_guard lock(m_mutex);
    if (path != m_path || stamp != m_stamp)
        m_merged = {};
    return m_merged;
}

void MergedPictures::keep(const QString& path, const FileStamp& stamp, const MergedPicture& merged) {
    const std::lock_guard lock(m_mutex);
    m_merged = merged;
    m_path = path;
    m_stamp = stamp;
}

} // namespace tarsel
