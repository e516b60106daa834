// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVariant>
#include <functional>

namespace tarsel {

/// The value of one control of a form, whatever the control's class:
///
///     slider, dial                    its number
///     check box, checkable button     1 or 0
///     line edit, editable combo box   its text
///     other combo box                 the index of its entry
///     button group "OptName"          the number of the button that is checked: "OptName_0", "OptName_1" ...
///     ValueControl                    what it says
class FieldControl {
public:
    /// Finds the control by its object name and fails hard where there is none: the form's file and its table
    /// differ.
    FieldControl(QObject& form, const char* name);

    void setValue(const QVariant& value) const;
    QVariant value() const; ///< invalid for a group without a checked button
    void onChange(const std::function<void()>& changed) const;

private:
    QObject* m_control;
};

} // namespace tarsel
