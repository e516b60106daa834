// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QDialog;

namespace tarsel {

/// Deletes a dialog some time after it has been closed: once no event loop runs but that of the program.
/// Routines of the dialog, or of others on its account, may be waiting in an inner one, for a file dialog or
/// a run; Qt's own `WA_DeleteOnClose` would not wait for them.
void deleteWhenClosed(QDialog& dialog);

} // namespace tarsel
