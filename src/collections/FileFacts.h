// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/clsFileInfo.h"

#include <QStringList>
#include <memory>

namespace tarsel {

/// What the row of a file says before the file is read.
struct FileFacts {
    QString path;
    QString size, type;      ///< texts; empty for a file that can't be read
    bool isReadable = false; ///< it exists and can be opened
};

/// Asks for the facts of one file after the other, on a thread that nobody waits for.
class FileFactsReading {
public:
    /// `info` says how sizes are written.
    FileFactsReading(QStringList paths, const clsFileInfo& info);
    ~FileFactsReading(); ///< the facts that are left are not asked for
    FileFactsReading(const FileFactsReading&) = delete;
    FileFactsReading& operator=(const FileFactsReading&) = delete;

    /// How many there are: when it is not more than `index`, some milliseconds are waited for that one.
    int countBeyond(int index) const;
    FileFacts take(int index); ///< waits for them

private:
    struct Found;
    std::shared_ptr<Found> m_found;
};

} // namespace tarsel
