// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <initializer_list>

class QWidget;

namespace tarsel {

/// Lets the Tab key walk the panes one after the other, and the controls of each in the order of its layouts,
/// which is that of reading.
void orderTabsByLayout(std::initializer_list<const QWidget*> panes);

} // namespace tarsel
