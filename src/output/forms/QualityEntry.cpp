// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/forms/QualityEntry.h"

#include "controls/TypedCharacters.h"

#include <QLineEdit>
#include <QSlider>
#include <algorithm>

namespace tarsel {

void joinQualityEntry(QSlider& slider, QLineEdit& field) {
    takeDigitsOnly(&field);
    const auto show = [&slider, &field] { field.setText(QString::number(slider.value())); };
    QObject::connect(&slider, &QSlider::valueChanged, &field, show);
    QObject::connect(&field, &QLineEdit::editingFinished, &slider, [&slider, &field, show] {
        slider.setValue(std::clamp(field.text().toInt(), slider.minimum(), slider.maximum()));
        show(); // also where the slider had the value already
    });
    show();
}

} // namespace tarsel
