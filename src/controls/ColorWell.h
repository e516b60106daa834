// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/ValueControl.h"
#include "pixels/Color.h"

#include <QPushButton>
#include <optional>

namespace tarsel {

/// A button that shows a colour and lets the user choose another one. Its value is the colour's number.
class ColorWell final : public QPushButton, public ValueControl {
    Q_OBJECT
public:
    explicit ColorWell(QWidget* parent = nullptr);

    QVariant value() const override { return m_color; }
    void setValue(const QVariant& color) override;
    /// Shows another colour than the value, or the value again.
    void showOther(std::optional<Color> color);
    void onChange(const std::function<void()>& changed) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void colorChanged();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void choose();
    void showColor();

    Color m_color = 0xFFFFFF;
    std::optional<Color> m_other;
};

} // namespace tarsel
