// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace tarsel {

/// Keeps each dialog on its screen as it opens: it becomes no larger than the screen, and one whose contents
/// can't become as small gets bars to scroll them.
class DialogFit final : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace tarsel
