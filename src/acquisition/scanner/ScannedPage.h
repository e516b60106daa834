// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/TrappedError.h"
#include "pixels/Picture.h"

#include <QString>
#include <functional>
#include <optional>

namespace tarsel {

struct ScannedPage {
    Picture picture;     ///< 24 bits
    int number = 1;      ///< from 1; goes on where the request says so
    int colorFormat = 0; ///< of pixels/ColorReduction.h: 0 colour, 2 gray, 6 black and white
    double dpiX = 0;     ///< 0 where the device doesn't say
    double dpiY = 0;
    bool isCut = false; ///< lower than the device had promised
};

/// What became of a page.
struct AcquiredFile {
    QString path;                      ///< empty when the page was not to be saved, as in a preview
    std::optional<TrappedError> error; ///< the page is not in the file then; the next one still arrives
};

/// Saves a page. Called on the scanner's own thread, for one page after another; the next page is not asked
/// for before it returns, so that a slow disk can't fill the memory.
using PageSaver = std::function<AcquiredFile(const ScannedPage&)>;

struct ScanRequest {
    int mostPages = 0;      ///< 0: one from a flatbed, all that a feeder holds
    int firstNumber = 1;    ///< "another page" of a document: TwainImageCount + 1
    bool isPreview = false; ///< one quick, coarse page of the whole area, which no saver sees
    PageSaver save = {};    ///< may be empty
};

struct ScanProgress {
    int number = 1;   ///< of the page
    int lines = 0;    ///< that have come
    int allLines = 0; ///< 0 where nobody knows, as with a hand scanner
    bool isSaving = false;
};

enum class ScanEndReason {
    Done,      ///< all pages that were asked for, or the feeder is empty after at least one
    Cancelled, ///< a page in the middle is dropped
    Failed     ///< see the error
};

/// The pages that had arrived stay, whatever the reason.
struct ScanEnd {
    ScanEndReason reason = ScanEndReason::Done;
    int pages = 0; ///< of this request
    std::optional<TrappedError> error = {};
};

} // namespace tarsel
