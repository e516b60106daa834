// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/forms/ScanSession.h"

namespace tarsel {

struct ScanTarget;

/// Informs the user of what went wrong: what happens in ordinary work, such as a paper jam or a full disk, in
/// one message; other errors of a page are reported. `pages` is how many arrived.
void showFaults(const ScanFaults& faults, int pages);

/// How many pages have been acquired.
QString pagesText(int pages);

/// Asks whether the files may be replaced.
QString replacingText(const ScanTarget& target);

} // namespace tarsel
