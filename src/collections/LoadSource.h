// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imaging/ImageBox.h"

#include <QString>

namespace tarsel {

/// Whether a picture of this extension is loaded by the box itself, and so with its metadata.
bool carriesMetadata(const QString& path);

/// Brings a picture file into the box as the batch does: the usual formats by the box itself, with their
/// metadata; every other extension, and a file that the box can't make sense of, by fncLoadPicture, without
/// metadata. A file that its decoder did not survive is not tried a second time. False, with an empty box,
/// when the content is unknown or the file can't be opened; other failures are raised.
bool loadSource(ImageBox& box, const QString& path, const std::stop_token& stop = {});

/// Why loadSource found no picture in the file.
QString noPictureReason(const QString& path);

} // namespace tarsel
