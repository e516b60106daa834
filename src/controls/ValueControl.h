// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVariant>
#include <functional>

namespace tarsel {

/// A control of our own whose value FieldControl reads and sets.
class ValueControl {
public:
    virtual ~ValueControl() = default;
    virtual QVariant value() const = 0;
    virtual void setValue(const QVariant& value) = 0;
    virtual void onChange(const std::function<void()>& changed) = 0;
};

} // namespace tarsel
