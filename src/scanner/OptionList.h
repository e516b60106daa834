// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/scanner/PackedRecords.h"
#include "acquisition/scanner/ScannerProtocol.h"

#include <sane/sane.h>
#include <string>

namespace tarsel::scanner {

/// All options from number 1 on. Each is: name, title, description; type, unit, capabilities; the number of
/// its values; the kind of its constraint, with the range's three numbers or the length of the list and its
/// entries (a text also in the user's language); 1 and the value where there is one that can be read, else 0.
SANE_Status packOptions(SANE_Handle handle, PackedWriter& options);

/// Sets one option. `taken` is the word as it is afterwards.
SANE_Status setOption(SANE_Handle handle, const ScannerRequest& request, const std::string& text,
                      SANE_Int& info, SANE_Word& taken);

} // namespace tarsel::scanner
