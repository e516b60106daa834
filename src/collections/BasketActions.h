// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/Basket.h"

namespace tarsel::basketActions {

/// Asks for a file and fills the basket from it; asks first when there are rows already.
void cmdPagesOpen(Basket& basket, CollectionLists& lists);

/// Fills the basket from a file that the user has named otherwise; asks first when there are rows already.
void openBasketFile(const QString& path, Basket& basket, CollectionLists& lists);

/// Asks for a file and writes the basket to it.
void cmdPagesSave(const ListView& lvPages);

} // namespace tarsel::basketActions
