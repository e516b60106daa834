// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSlider>

namespace tarsel {

/// A slider that is framed while it has the focus, however the focus came to it.
class FocusSlider final : public QSlider {
    Q_OBJECT
public:
    using QSlider::QSlider;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tarsel
