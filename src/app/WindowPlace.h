// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QWidget;

namespace tarsel {

/// The file of the program folder that remembers size, position and maximised state of the main window.
QString windowPlaceFile(const QString& programFolder);

/// Puts a window where it was when its place was stored. Without a readable file it gets its usual size. A
/// screen that has become smaller, or is gone, leaves no part of it out of reach.
void restoreWindowPlace(QWidget& window, const QString& file);

/// A place that can't be written is not worth a message: it is dropped.
void storeWindowPlace(const QWidget& window, const QString& file);

} // namespace tarsel
