// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Progress.h"
#include "collections/RowRun.h"
#include "publishing/Players.h"

#include <functional>
#include <stop_token>
#include <string>
#include <vector>

namespace tarsel {

/// What a joined file is made from.
struct JoinedSources {
    const ListView& rows;
    ImageBox& ibTemp;
    std::function<std::vector<TaskRow>()> tasks; ///< asked for each row; none where no tasks run
};

/// How a run differs from the plain one of the window.
struct JoinedRun {
    bool upright = false;      ///< pictures are turned by their EXIF orientation before the tasks run
    bool stripPrivate = false; ///< position and serial numbers are left out of the pictures
    QStringList unreadSources; ///< files that the user named but that became no rows; they are not replaced
    std::stop_token stop;
    std::function<void(const QString&)> status; ///< called with the name of each stage
    bool reportsRows = true;                    ///< errors of rows, whose results have them too
    bool leavesList = true;                     ///< a copy, in the system's folder for temporary files
};

/// One joined file.
struct JoinedBuild {
    const char* routine; ///< in reports of the error that ends it
    QString path;
    Player player;
    PlayerSystem system;
    int quality;         ///< of the pictures, 1 to 100
    std::string options; ///< the record
    QString listName;    ///< of the copy
    bool needsAll;       ///< a row that fails ends the build, and without a row written no file is made
};

/// Writes the file with a picture for each row. Returns false when it ended in an error, which is trapped: no
/// row is reported as written then, and an older file stays. After a cancel the file has the pictures so far.
bool buildJoined(const JoinedBuild& build, const JoinedSources& sources, Progress& progress,
                 const JoinedRun& run, std::vector<RowResult>& results);

} // namespace tarsel
