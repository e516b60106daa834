// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "base/Progress.h"
#include "imaging/ImageBox.h"
#include "imaging/fncLoadPicture.h"

#include <QString>
#include <QVariant>
#include <functional>

namespace tarsel {

/// The lists and boxes that basket and folder view work on: the window makes them and lends them.
struct CollectionLists {
    ListView& lvFolder;
    ImageList& ilFolder;
    ListView& lvPages;
    ImageList& ilPages;
    ImageBox& ibMain;
    Progress& pbQueue;
    StatusLine& sbMain;
};

/// What the collections need of the settings, as values.
struct CollectionSettings {
    QString programFolder; ///< the folder in which Temp lies
    Size folderThumb{40, 40};
    Size basketThumb{40, 40};
    bool longFileSize = false;
    bool upright = false; ///< thumbnails are turned by the EXIF orientation
    int folderView = 0;   ///< 0 thumbnails, 3 details
};

/// Makes the value that an ImageList holds of a picture. The window gives one that makes an icon; without one
/// (the command line) thumbnails are not made at all, and a picture is known by its header.
using ThumbnailMaker = std::function<QVariant(const Picture&)>;

} // namespace tarsel
