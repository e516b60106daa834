// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imaging/ImageBox.h"

#include <QString>
#include <functional>

namespace tarsel {

/// Whether a picture of this extension is loaded by the box itself, and so with its metadata.
bool carriesMetadata(const QString& path);

/// Brings a picture file into the box as the batch does: the usual formats by the box itself, with their
/// metadata; every other extension, and a file that the box can't make sense of, by fncLoadPicture, without
/// metadata. A file that its decoder did not survive is not tried a second time. False, with an empty box,
/// when the content is unknown or the file can't be opened; other failures are raised.
bool loadSource(ImageBox& box, const QString& path, const std::stop_token& stop = {});

/// The size in which a picture is drawn, from its own, both as it is seen.
using DrawnSize = std::function<PixelSize(PixelSize)>;

/// loadSource, and what tasks find: as prepareForTasks leaves it. With `drawn` the usual formats are loaded
/// by LoadReduced.
bool loadPrepared(ImageBox& box, const QString& path, bool upright, const std::stop_token& stop = {},
                  const DrawnSize& drawn = {});

/// Why loadSource found no picture in the file.
QString noPictureReason(const QString& path);

} // namespace tarsel
