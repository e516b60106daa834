// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "embedded/EmbeddedMetadata.h"

namespace tarsel {

/// Removes where a picture was taken, as coordinates, and the serial numbers of the devices. Data in formats
/// of camera makers go as well, because they hold serial numbers in ways of their own, and so does a block
/// that can't be read and therefore can't be cleaned. Names of places and persons, and thumbnails, stay.
void removePrivateMetadata(EmbeddedMetadata& metadata);

} // namespace tarsel
