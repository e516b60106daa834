// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tarsel::artwork {

/// Writes the images of links of an album, and the backgrounds of its pages and thumbnails, into a folder.
void writeAlbum(const QString& folder);

} // namespace tarsel::artwork
