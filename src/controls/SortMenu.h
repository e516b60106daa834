// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QAction;
class QMenu;

namespace tarsel {

class ListView;

/// Adds a submenu, before an entry or at the end, that sorts the list as clicks on its column headers do.
void addSortMenu(QMenu& menu, QAction* before, ListView& list);

} // namespace tarsel
