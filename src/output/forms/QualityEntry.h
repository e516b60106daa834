// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QLineEdit;
class QSlider;

namespace tarsel {

/// Lets a slider and the field beside it follow each other. The field takes digits; a number beyond the
/// slider's range is brought into it when the field is left.
void joinQualityEntry(QSlider& slider, QLineEdit& field);

} // namespace tarsel
