// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/scanner/ScanOption.h"

#include <QWidget>

class QDoubleSpinBox;

namespace tarsel {

/// The control for one option of a scanner: a check box, a list, a number with its unit, a text, or a button
/// that is pressed. It reports what the user does; what the scanner took of it comes back through show().
class ScanOptionEditor final : public QWidget {
    Q_OBJECT
public:
    /// Of an option that isn't a group. What kind of control it is depends on the option's type and stays.
    explicit ScanOptionEditor(const ScanOption& option, QWidget* parent = nullptr);

    void show(const ScanOption& option); ///< the same option with another value, other limits or choices
    using QWidget::show;
    QWidget* control() const { return m_control; } ///< that gets the focus

Q_SIGNALS:
    void changed(const QString& name, const tarsel::ScanValue& value);

private:
    void makeControl();
    void report(const ScanValue& value);

    ScanOption m_option;
    QWidget* m_control = nullptr;
    bool m_isShowing = false;
};

/// " mm", " dpi" and so on, to be put after a number; empty where the option has no unit.
QString unitSuffix(ScanUnit unit);

/// Range, step, decimals and unit of a number.
void setLimits(QDoubleSpinBox& box, const ScanOption& option);

} // namespace tarsel
