// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QDialog;

namespace tarsel {

/// Deletes a dialog some time after it has been closed: once all event loops have ended that began after this
/// call. Routines of the dialog, or of others on its account, may be waiting in one of them, for a file
/// dialog or a run; Qt's own `WA_DeleteOnClose` would not wait for them.
void deleteWhenClosed(QDialog& dialog);

} // namespace tarsel
