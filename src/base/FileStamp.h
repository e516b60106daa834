// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/FileIdentity.h"

#include <QDateTime>
#include <QFileInfo>

namespace tarsel {

/// By which a file that was replaced or changed in the meantime is recognised; that of a missing file is
/// equal for as long as it is missing.
class FileStamp {
public:
    static FileStamp of(const QString& path) {
        FileStamp stamp;
        stamp.m_identity = FileIdentity::of(path);
        const QFileInfo file(path);
        stamp.m_size = file.size();
        stamp.m_modified = file.lastModified();
        stamp.m_changed = file.metadataChangeTime();
        return stamp;
    }
    bool operator==(const FileStamp&) const = default;

private:
    FileIdentity m_identity;
    qint64 m_size = 0;
    QDateTime m_modified;
    QDateTime m_changed;
};

} // namespace tarsel
