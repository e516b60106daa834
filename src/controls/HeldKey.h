// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAction>
#include <QWidget>

namespace tarsel {

/// Checks an action for as long as the user holds a key that no control of the window makes use of.
class HeldKey final : public QObject {
    Q_OBJECT
public:
    HeldKey(Qt::Key key, QAction& action, QWidget& window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void release();

    const Qt::Key m_key;
    QAction& m_action;
    bool m_isHeld = false;
};

} // namespace tarsel
