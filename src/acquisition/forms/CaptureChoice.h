// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tarsel {

enum class CaptureKind {
    Desktop = 0,    ///< without any window
    Foreground = 1, ///< as it is
    Background = 2, ///< without the program's main window
};

struct CaptureChoice {
    CaptureKind kind = CaptureKind::Desktop;
    bool region = false; ///< the user cuts a part out
    bool withPointer = false;
};

} // namespace tarsel
