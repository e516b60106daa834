// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QToolButton>

namespace tarsel {

/// A choice among pictures, framed while it is the chosen one: a picture hides the shade of a checked button.
class PictureButton final : public QToolButton {
    Q_OBJECT
public:
    using QToolButton::QToolButton;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tarsel
