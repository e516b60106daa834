// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QFileDialog;

namespace tarsel {

/// Room for names, and columns as wide as their texts, in the file dialog that is shown where the desktop has
/// none of its own. Beside the home folder, its left column has the one for pictures.
void makeFileDialogReadable(QFileDialog& dialog);

} // namespace tarsel
