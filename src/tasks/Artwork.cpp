// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/Artwork.h"

#include "tasks/TaskColumns.h"
#include "tasks/TaskList.h"

#include <QCoreApplication>

namespace tarsel {

namespace {

constexpr int frame = 13;
constexpr int mask = 14;
constexpr int shadow = 15;

} // namespace

bool needsArtwork(int kind, const TaskRow& row) {
    return kind == mask || kind == shadow || (kind == frame && row[column::Frame::plain] == 0);
}

QString missingArtworkText(int kind) {
    return QCoreApplication::translate("Artwork", "%1 artwork is not part of this program yet")
        .arg(taskDisplayName(kind));
}

} // namespace tarsel
