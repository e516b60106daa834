// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Workspace.h"

namespace tarsel {

namespace {

QStringList metadataHeaders() {
    return {QStringLiteral("Attribute"), QStringLiteral("Value")};
}

} // namespace

Workspace::Workspace() : lvExif(metadataHeaders()), lvIPTC(metadataHeaders()) {
    lvPages.setTextEditable(true);
}

} // namespace tarsel
