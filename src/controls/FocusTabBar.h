// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTabBar>

namespace tarsel {

/// Tabs that frame the current one while they have the focus, which styles mark faintly.
class FocusTabBar : public QTabBar {
    Q_OBJECT
public:
    using QTabBar::QTabBar;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tarsel
