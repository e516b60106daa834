// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QString>

namespace tarsel {

/// One of our own small icons by name ("folder", "add", "save" ..), drawn as lines in the palette's colours,
/// so that it is sharp at every scale and right on dark and light desktops. An unknown name gives an empty
/// icon.
QIcon lineIcon(const QString& name);

} // namespace tarsel
