// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "configuration/ConfigRecord.h"
#include "imaging/ImageBox.h"

#include <QSize>
#include <QString>

namespace tarsel {

/// Settings of the box that hold for the pictures of an album. They stay in force for the tasks of later
/// rows.
void setAlbumSettings(ImageBox& box, const settings::Album& settings);

/// Makes the two JPEG files of a row in a folder, from the picture that the tasks left in the box, and sets
/// `size` to that picture's. Returns the name of the thumbnail's file; "" for an empty box. A file that is
/// there already is replaced in one step, and stays as it was when its successor can't be written.
QString fncGenerateJPGsForAlbum(ImageBox& box, const settings::Album& settings, const QString& folder,
                                const QString& name, QSize& size);

} // namespace tarsel
