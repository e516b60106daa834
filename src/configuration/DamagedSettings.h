// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace tarsel {

/// What SplitterMain holds in a record that is to be thrown away.
constexpr qint16 damagedRecordMark = 10;

/// Looks at ConfigPath, the .ini file beside it and the folder Temp before they are used, and keeps what the
/// program would write over: under the same name with ".damaged", and a number where that is taken.
///
/// A record that ends early is copied and stays, for what it holds; so is one with the mark of damage, of
/// which nothing is said. What is no record at all, such as a folder, a file that can't be read or that is
/// far too large, without positions of the splitters or with such as no window has, is renamed, so that the
/// defaults hold.
///
/// Returns a sentence for the user about each.
QStringList keepDamagedSettings();

} // namespace tarsel
