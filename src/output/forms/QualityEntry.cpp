// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/forms/QualityEntry.h"

#include "controls/TypedCharacters.h"

#include <QLineEdit>
#include <QRegularExpression>
#include <QSlider>
#include <algorithm>

namespace tarsel {

namespace {
constexpr int mostDigits = 9; // that a number holds
}

void joinQualityEntry(QSlider& slider, QLineEdit& field) {
    takeDigitsOnly(&field);
    const auto show = [&slider, &field] { field.setText(QString::number(slider.value())); };
    QObject::connect(&slider, &QSlider::valueChanged, &field, show);
    QObject::connect(&field, &QLineEdit::editingFinished, &slider, [&slider, &field, show] {
        static const QRegularExpression others(QStringLiteral("[^0-9]"));
        const QString digits = field.text().remove(others); // pasted text may have more
        if (!digits.isEmpty())
            slider.setValue(std::clamp(digits.left(mostDigits).toInt(), slider.minimum(), slider.maximum()));
        show(); // also where the slider had the value already
    });
    show();
}

} // namespace tarsel
