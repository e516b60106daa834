// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "configuration/ConfigRecord.h"

#include <QStringList>

namespace tarsel {

/// What pages meet on the disk.
struct ScanTarget {
    QString folder;
    bool isFolderThere = true;
    QStringList replaced; ///< names of the files that pages from that number on would replace
};

/// Looks at the disk; for a thread that may wait. `firstNumber` is that of the first page.
ScanTarget scanTarget(const settings::Twain& choice, int firstNumber);

} // namespace tarsel
