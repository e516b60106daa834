// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/Codec.h"

namespace tarsel {

/// Adds the picture as the last page of the document, through the safe writer: a failure leaves it as it was.
/// Pages that are there keep their bytes. A missing document is made. `title` becomes the page's
/// DocumentName, unless it is empty. Error 0x8000FFFF for a file that is not a TIFF document with offsets of
/// 32 bits.
void appendTiffPage(const QString& path, const QString& title, const Picture& picture,
                    const SaveSettings& settings, const EmbeddedMetadata& metadata);

} // namespace tarsel
