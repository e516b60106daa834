// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tarsel {

/// What went wrong, as the user sees it and may send it.
struct ErrorReport {
    QString ErrApplicationVersion; ///< major "." minor "." revision
    QString ErrRoutine;            ///< name of the routine that trapped, such as "FrmMain.subEnd"
    qint16 ErrLine = 0;            ///< source line of the failing step
    QString ErrTrappingString;     ///< copy of TrappingString
    QString ErrSystem;             ///< error number, " - ", description
};

} // namespace tarsel
