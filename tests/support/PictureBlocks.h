// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "embedded/EmbeddedMetadata.h"

#include <QString>

namespace tarsel::test {

/// The metadata blocks of a JPEG or PSD file, found by a walk of its own that no code of the program shares.
EmbeddedMetadata blocksOfPicture(const QString& path);

} // namespace tarsel::test
