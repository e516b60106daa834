// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QString>

namespace tarsel {

/// One of our own small icons by the name of its file in icons/ ("folder", "add", "save" ..): sharp at every
/// scale, in the colours of the light or the dark palette. An unknown name returns an empty icon.
///
/// The files use five nominal colours, which are exchanged before drawing: the ink #31363b becomes the
/// palette's text colour, the accents #3a86d0, #d08a24, #3f9c52 and #c8453c are lightened on dark palettes.
QIcon lineIcon(const QString& name);

} // namespace tarsel
