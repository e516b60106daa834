// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace tarsel {

/// Keeps the fixed tool tips of all windows from appearing while the user has switched tips off. The text of
/// a cell that is cut is shown all the same.
class TipSwitch final : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace tarsel
