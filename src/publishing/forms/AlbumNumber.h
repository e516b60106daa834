// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSpinBox>

class QLineEdit;

namespace tarsel {

/// The arrows beside a box for a number, with limits of their own.
class UpDown final : public QSpinBox {
    Q_OBJECT
public:
    explicit UpDown(QWidget* parent = nullptr);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
};

/// Lets a box take digits only, between limits that it applies when the focus leaves it, and join its arrows:
/// they follow the box where they can, and it takes what they count. An emptied box gets `fallback`.
void joinNumber(QLineEdit& box, UpDown& arrows, int lowest, int highest, int fallback);

} // namespace tarsel
