// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QLineEdit;

namespace tarsel {

/// Drops the characters that no file name may hold ( " * / : < > ? \ | ) while the user types or pastes.
/// A text that the program sets is left as it is.
void dropForbiddenCharacters(QLineEdit* edit);

/// Lets the user type the digits 0 to 9 and delete; other characters are dropped as they are typed.
void takeDigitsOnly(QLineEdit* edit);

} // namespace tarsel
