// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/SaveSettings.h"
#include "embedded/EmbeddedMetadata.h"
#include "pixels/Picture.h"

#include <QByteArray>

namespace tarsel {

/// How large a JPEG file may become, and what may be given up for that.
struct SizeBudget {
    static constexpr int usualLowestQuality = 40;

    qint64 bytes = 0; ///< of the file with its metadata; 0: no limit, nothing to search for
    int lowestQuality = usualLowestQuality; ///< a best quality below it is the lowest too
    bool mayShrink = false; ///< when the lowest quality makes too large a file, the picture loses pixels

    bool operator==(const SizeBudget&) const = default;
};

struct BudgetedJpeg {
    QByteArray bytes;
    SaveSettings settings; ///< that encode `picture` to these bytes
    Picture picture;       ///< smaller than the one given where it had to shrink

    double quality() const; ///< between two whole ones where the file uses the budget up
};

/// The JPEG file of the best quality, at most that of `settings`, that keeps to the budget. It uses at least
/// 97 % of it, unless the best quality takes less. Error 5 when no file is small enough, 18 after a stop.
BudgetedJpeg jpegWithin(const SizeBudget& budget, const Picture& picture, const SaveSettings& settings,
                        const EmbeddedMetadata& metadata);

} // namespace tarsel
