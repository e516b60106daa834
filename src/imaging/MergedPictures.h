// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/FileStamp.h"
#include "pixels/Picture.h"

#include <QByteArray>
#include <QString>
#include <mutex>

namespace tarsel {

/// A picture and the profile of its colours.
struct MergedPicture {
    Picture picture;
    QByteArray iccProfile;
};

/// The picture merged last: a batch lays the same watermark on every picture. Any thread may call it.
class MergedPictures {
public:
    static MergedPictures& ofProcess();
    /// The picture in a file, decoded unless it is the last one, unchanged. Raises what its codec raises.
    MergedPicture load(const QString& path);

private:
    MergedPicture kept(const QString& path, const FileStamp& stamp);
    void keep(const QString& path, const FileStamp& stamp, const MergedPicture& merged);

    std::mutex m_mutex;
    QString m_path;
    FileStamp m_stamp;
    MergedPicture m_merged;
};

} // namespace tarsel
