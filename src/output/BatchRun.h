// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/RowResult.h"
#include "imaging/SizeBudget.h"
#include "output/SourceGuard.h"

#include <QStringList>
#include <functional>
#include <stop_token>

namespace tarsel {

/// How a run differs from the plain one of the window.
struct BatchRun {
    int firstRow = 1;    ///< rows outside are not done, but count for numbering
    int lastRow = 0;     ///< 0: to the last
    bool dryRun = false; ///< everything but the writing; what would be written is skipped as "dry run"
    /// "Source folder" of a page means the folder of its document, not that of the extracted page file.
    bool pagesToDocumentFolder = false;
    SourceReplacing sourceReplacing = SourceReplacing::KeptReadable;
    QStringList unreadSources; ///< files that the user named but that became no rows; they are not replaced
    /// Of each file. A JPEG source that keeps to it, with no task to run, is copied with its new metadata.
    SizeBudget budget;
    std::stop_token stop; ///< ends the loading of a row's picture: that row and the rest are cancelled
    std::function<void(const RowResult&)> onRow; ///< called for each row as soon as it is done
    bool readAhead = true;                       ///< as of RowRun
};

} // namespace tarsel
