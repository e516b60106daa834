// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QLineEdit;

namespace tarsel {

/// What a box for a number takes.
struct NumberBoxRules {
    bool isBounded = false;
    int lowest = 0; ///< the nearest bound replaces a number beyond it when the focus leaves
    int highest = 0;
    QString fallback = {}; ///< fills the box when it is emptied, selected
    bool takesMinus = false;
    bool takesFraction = false;
};

/// Lets the user type or paste numbers only, in the digits and with the decimal point of any language, which
/// become plain ones. The arrow keys count up and down within the bounds.
void takeNumbers(QLineEdit* box, const NumberBoxRules& rules);

} // namespace tarsel
