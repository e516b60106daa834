// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "collections/Basket.h"
#include "collections/RowRun.h"
#include "collections/modFileSystem.h"

namespace tarsel {

/// The files that a row of the basket is made from: its picture and, for an extracted page, the document.
inline QStringList sourcesOfRow(const ListRow& row) {
    QStringList sources{row.tag};
    const QString document = row.subItems.value(BasketColumn::SourcePath - 1);
    if (!document.isEmpty() && document != row.tag)
        sources << document;
    return sources;
}

/// The folder that "source folder" means, with a separator at its end: of a page that of its file, or that of
/// its document.
inline QString sourceFolder(const ListRow& row, bool ofDocument) {
    return modFileSystem::GetFolderPart(ofDocument ? shownSource(row) : row.tag);
}

} // namespace tarsel
