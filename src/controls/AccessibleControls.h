// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tarsel {

/// From now on assistive programs know the controls that are no control of Qt's: the bar of a splitter,
/// links.
void installAccessibleControls();

} // namespace tarsel
