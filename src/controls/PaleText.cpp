// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/PaleText.h"

#include <QEvent>
#include <QPalette>
#include <QWidget>
#include <algorithm>
#include <cmath>

namespace tarsel {

namespace {

constexpr double leastContrast = 4.5;

double luminanceOf(const QColor& color) {
    const auto linear = [](float value) {
        return value <= 0.03928F ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

QColor mixed(const QColor& front, const QColor& back, float share) {
    return QColor::fromRgbF(front.redF() * share + back.redF() * (1 - share),
                            front.greenF() * share + back.greenF() * (1 - share),
                            front.blueF() * share + back.blueF() * (1 - share));
}

class PlaceholderColor final : public QObject {
public:
    explicit PlaceholderColor(QWidget& field) : QObject(&field), m_field(field) {
        field.installEventFilter(this);
        apply();
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::PaletteChange)
            apply();
        return QObject::eventFilter(watched, event);
    }

private:
    void apply() {
        QPalette colors = m_field.palette();
        const QColor pale = paleText(colors);
        if (colors.color(QPalette::PlaceholderText) == pale)
            return;
        colors.setColor(QPalette::PlaceholderText, pale);
        m_field.setPalette(colors);
    }

    QWidget& m_field;
};

} // namespace

double contrastOf(const QColor& one, const QColor& other) {
    const auto [dark, light] = std::minmax({luminanceOf(one), luminanceOf(other)});
    return (light + 0.05) / (dark + 0.05);
}

QColor paleText(const QPalette& palette) {
    const QColor text = palette.color(QPalette::Active, QPalette::Text);
    const QColor base = palette.color(QPalette::Active, QPalette::Base);
    for (const float share : {0.65F, 0.8F})
        if (const QColor pale = mixed(text, base, share); contrastOf(pale, base) >= leastContrast)
            return pale;
    return text;
}

void keepPlaceholderReadable(QWidget& field) {
    new PlaceholderColor(field);
}

} // namespace tarsel
