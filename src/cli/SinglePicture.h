// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace tarsel {
class ImageBox;
}

// What `apply` and `encode` share: one picture that is read from a file and saved in another.
namespace tarsel::cli {

struct SourceState {
    QString damage; ///< what is wrong with a source that could be read in part; empty for an undamaged one
    int pages = 1;
    bool losesOrientation = false; ///< the file that was made of it shows the picture turned
};

/// Loads the picture that is to be saved as `target`. What was read only in part must not be saved over its
/// own file, of which the rest would be lost: a damaged picture, or one page of several. Error 481 then.
SourceState loadForTarget(ImageBox& box, const QString& source, const QString& target);

/// What the result says of a damaged source; empty for an undamaged one.
QString damageText(const SourceState& state);

/// Messages about what a user may miss in the file that was made.
QStringList remarksOn(const QString& source, const SourceState& state);

/// Whether the picture loaded from `source` has an EXIF orientation that a file with that extension can't
/// hold, or that was not loaded with the picture.
bool isOrientationLost(const ImageBox& box, const QString& source, const QString& extension);

} // namespace tarsel::cli
