// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Color.h"
#include "pixels/Picture.h"

#include <QString>
#include <optional>
#include <stop_token>

namespace tarsel {

class PictureFile;

enum class LoadMode {
    FullSize = 0,
    FitInside = 1, ///< fitted inside the box, proportions kept, never enlarged
    ExactBox = 2   ///< the size of the box exactly; the picture fitted into it and centred on the back colour
};

struct Size {
    int width = 0;
    int height = 0;
    bool operator==(const Size&) const = default;
};

/// Opens any file as a picture in sRGB, at full size or in a box; the first page of a document. A metafile is
/// drawn at the size that it is wanted in.
/// Returns nothing for unknown content, and for a file that is missing or not readable. Error 481 when the
/// content is known and can't be read. `sourceSize`, when given, receives the file's own size. Error 18 once
/// a stop is requested. Any thread may call it. `damage`, when given, receives what is wrong with a file that
/// could be read in part at full size.
std::optional<Picture> fncLoadPicture(const QString& path, LoadMode mode, Size box = {-1, -1},
                                      Color backColor = 0xFFFFFF, Size* sourceSize = nullptr,
                                      const std::stop_token& stop = {}, QString* damage = nullptr);

/// A file opened for reading; nothing when it is missing or not readable.
std::optional<PictureFile> openPicture(const QString& path);
/// fncLoadPicture of a file that is open already.
std::optional<Picture> fncLoadPicture(const PictureFile& file, LoadMode mode, Size box, Color backColor,
                                      Size* sourceSize = nullptr, QString* damage = nullptr);

/// A picture that was drawn small, and its own size.
struct FittedPicture {
    Picture picture;
    Size sourceSize;
};
/// The first page with its transparency, in sRGB, in the size in which `mode` draws it, without a ground.
/// Errors as those of PictureFile.
FittedPicture loadFitted(const PictureFile& file, LoadMode mode, Size box);

/// ExactBox from a picture that stands for one of `sourceSize`, whose proportions count.
Picture drawInBox(const Picture& picture, Size sourceSize, Size box, Color backColor = 0xFFFFFF);

/// The size of a picture as it is drawn in mode ExactBox, centred in the box.
Size sizeInBox(Size picture, Size box);
/// The size of a picture in mode FitInside.
Size fitInside(Size picture, Size box);

/// The same drawing from a picture in memory: FullSize keeps it, FitInside and ExactBox as above.
Picture ScalePicture(const Picture& picture, LoadMode mode, Size box, Color backColor = 0xFFFFFF);

} // namespace tarsel
