// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/RowResult.h"

#include <QStringList>
#include <functional>
#include <stop_token>

namespace tarsel {

/// How a run differs from the plain one of the window.
struct AlbumRun {
    bool upright = false;      ///< pictures are turned by their EXIF orientation before the tasks run
    QStringList unreadSources; ///< files that the user named but that became no rows; they are not replaced
    std::stop_token stop;
    std::function<void(const RowResult&)> onRow;
    bool readAhead = true;
};

} // namespace tarsel
