// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "base/Progress.h"
#include "base/StatusLine.h"
#include "imaging/fncLoadPicture.h"

#include <QString>
#include <algorithm>
#include <cmath>
#include <optional>

namespace tarsel {

/// The lists that basket and folder view work on: the window owns them. Their image lists
/// hold values of type Picture.
struct CollectionLists {
    ListView& lvFolder;
    ImageList& ilFolder;
    ListView& lvPages;
    ImageList& ilPages;
    Progress& pbQueue;
    StatusLine& sbMain;
};

/// What the collections need of the settings, as values.
struct CollectionSettings {
    QString programFolder; ///< the folder that holds Temp
    Size folderThumb{40, 40};
    Size basketThumb{40, 40};
    double pixelRatio = 1;          ///< pixels of a thumbnail for each pixel of its size
    double thumbnailMemory = 256e6; ///< bytes for the thumbnails of the folder list
    bool thumbnails = true;         ///< off: none are made, and a picture is known by its header alone
    bool longFileSize = false;
    bool upright = false; ///< thumbnails are turned by the EXIF orientation
    int folderView = 0;   ///< 0 thumbnails, 3 details

    /// Sizes of the thumbnails in pixels; none where no thumbnails are made.
    std::optional<Size> folderBox() const { return boxOf(folderThumb); }
    std::optional<Size> basketBox() const { return boxOf(basketThumb); }

    /// The factor by which thumbnails of so many rows are made smaller, so that they fit that memory.
    double affordableRatio(int rows) const {
        const Size box = folderBox().value_or(Size{1, 1});
        return std::min(1.0, std::sqrt(thumbnailMemory / (3.0 * box.width * box.height * std::max(rows, 1))));
    }

private:
    std::optional<Size> boxOf(Size size) const {
        if (!thumbnails)
            return std::nullopt;
        return Size{int(std::lround(size.width * pixelRatio)), int(std::lround(size.height * pixelRatio))};
    }
};

} // namespace tarsel
