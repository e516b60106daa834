// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tarsel {

/// From now on assistive programs know the controls that Qt doesn't have: the bar of a splitter, links, the
/// parts of an isExplorerBar.
void installAccessibleControls();

} // namespace tarsel
