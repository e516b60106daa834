// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace tarsel {

/// Keeps letters that are pressed with Alt out of the fields of all windows: those of a button that is
/// disabled just then would be typed.
class AltLetters final : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace tarsel
