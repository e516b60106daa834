// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imaging/fncLoadPicture.h"

#include <QByteArray>
#include <QString>
#include <atomic>
#include <optional>

namespace tarsel {

/// A file as its thumbnail names it. A file that has changed since has another time or size.
struct ThumbnailSource {
    QString path;
    QByteArray uri;
    qint64 modified = 0; ///< seconds since 1970
    qint64 bytes = 0;

    /// Nothing for what is not a regular file.
    static std::optional<ThumbnailSource> of(const QString& path);
};

/// A thumbnail as the store keeps it: upright, as all programs expect.
struct StoredThumbnail {
    Picture picture;
    /// The source's size and EXIF orientation as in the file. Other programs don't say the latter: 0.
    Size sourceSize;
    int orientation = 0;
};

/// The thumbnails that the programs of a desktop share, by the thumbnail standard of freedesktop.org: PNG
/// files named by the MD5 sum of their source's URI, in one folder for each size. The folder may be missing,
/// read-only or removed at any time. Any thread may call it.
class ThumbnailStore {
public:
    explicit ThumbnailStore(QString folder); ///< need not exist

    /// The side of the smallest square for thumbnails that holds the box; 0 for a box that none can hold.
    static int sideFor(Size box);
    /// The smallest thumbnail of at least that square. Damaged, outdated and foreign files don't count.
    std::optional<StoredThumbnail> find(const ThumbnailSource& source, int side) const;
    std::optional<StoredThumbnail> findLargest(const ThumbnailSource& source) const;
    /// The first file that can't be written is the last one that is tried.
    void keep(const ThumbnailSource& source, int side, const StoredThumbnail& made);
    /// That this version of the program can't read the file.
    void keepFailure(const ThumbnailSource& source);
    bool hasFailed(const ThumbnailSource& source) const;
    bool contains(const QString& path) const; ///< a file in the store's own folders

private:
    QString fileOf(const QString& kind, const ThumbnailSource& source) const;
    static std::optional<StoredThumbnail> read(const QString& path, const ThumbnailSource& source, int side);
    void write(const QString& kind, const ThumbnailSource& source, const QByteArray& png);

    const QString m_folder;
    const QByteArray m_software; ///< name and version of this program
    std::atomic<bool> m_isWritable = true;
};

} // namespace tarsel
