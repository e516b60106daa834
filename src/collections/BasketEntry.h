// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tarsel {

/// One line of a basket file.
struct BasketEntry {
    QString path;
    QString description; ///< empty in a .ibf file
    QString title = {};  ///< of its row; only the last basket has it
};

/// One whose row is still to come.
struct AwaitedEntry : BasketEntry {
    QString after; ///< the path before it; empty for the first
};

} // namespace tarsel
