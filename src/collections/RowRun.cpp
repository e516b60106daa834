// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/RowRun.h"

#include "collections/Basket.h"

namespace tarsel {

QString shownSource(const ListRow& row) {
    const QString source = row.subItems.value(BasketColumn::SourcePath - 1);
    return source.isEmpty() ? row.tag : source;
}

} // namespace tarsel
