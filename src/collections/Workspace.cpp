// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/Workspace.h"

#include "collections/Basket.h"
#include "collections/FolderView.h"

#include <QCoreApplication>

namespace tarsel {

namespace {

QStringList metadataHeaders() {
    return {QCoreApplication::translate("Workspace", "Attribute"),
            QCoreApplication::translate("Workspace", "Value")};
}

} // namespace

Workspace::Workspace() :
    lvFolder(folderHeaders()), lvPages(basketHeaders()), lvExif(metadataHeaders()),
    lvIPTC(metadataHeaders()) {
    lvPages.setTextEditable(true);
}

} // namespace tarsel
