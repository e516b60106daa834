// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <mutex>

class QFileInfo;

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
    MergedPicture kept(const QString& path, const QFileInfo& file);
    void keep(const QString& path, const QFileInfo& file, const MergedPicture& merged);

    std::mutex m_mutex;
    QString m_path;
    QDateTime m_modified;
    qint64 m_size = 0;
    MergedPicture m_merged;
};

} // namespace tarsel
