// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace tarsel {

/// Shows on the buttons of frames, masks and shadows what each does to a small picture. They are drawn one by
/// one from when the page is first shown; a button whose artwork can't be drawn keeps its number.
void showArtwork(QWidget& page);

} // namespace tarsel
