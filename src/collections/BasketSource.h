// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/TrappedError.h"
#include "collections/CollectionLists.h"
#include "collections/PageFiles.h"
#include "collections/Thumbnail.h"

#include <functional>
#include <optional>

namespace tarsel {

/// A file on its way into the basket.
struct BasketSource {
    AddedBy addedBy;
    QString path;
    QString fileName;
    int pages = 1;          ///< 0: to be counted
    Picture shown;          ///< the folder list's thumbnail, which saves reading the file; may be null
    int pageFileNumber = 0; ///< where the numbers of its page files begin
};

/// What a thread found in it: a picture, or one page of a document.
struct BasketContent {
    std::optional<Thumbnail> thumbnail; ///< nothing where it can't be read
    int page = 0;                       ///< 0 for a picture without pages
    int pages = 0;
    Size size;                           ///< of the page
    QString pageFile;                    ///< the page's own file, when it could be read
    std::optional<TrappedError> failure; ///< ends the source
    bool isLast = true;                  ///< the last content of this source
};

/// Takes what was found; false when nobody wants it any more.
using BasketContentTaker = std::function<bool(BasketContent)>;

/// Reads a source, on any thread: its picture, or its pages in their order, each into a file of its own. Page
/// files that nobody wants are removed again.
void readBasketSource(const BasketSource& source, const CollectionSettings& settings,
                      const ThumbnailReader& readThumbnail, const BasketContentTaker& take);

} // namespace tarsel
