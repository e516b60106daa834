// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <initializer_list>

class QButtonGroup;
class QWidget;

namespace tarsel {

/// Lets the Tab key walk the panes one after the other, and the controls of each in the order of its layouts,
/// which is that of reading.
void orderTabsByLayout(std::initializer_list<const QWidget*> panes);

/// Lets the Tab key come to the chosen button of a group alone; the arrows go to the others. From the next
/// choice on.
void letTabReachChosen(const QButtonGroup& group);

} // namespace tarsel
