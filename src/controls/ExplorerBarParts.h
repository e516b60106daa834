// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/ExplorerBarDrawing.h"

#include <QAbstractButton>

namespace tarsel {

/// A button of an isExplorerBar. Arrow keys leave it for the next part in their direction.
class ExplorerBarPart : public QAbstractButton {
    Q_OBJECT
public:
    explicit ExplorerBarPart(QWidget* parent);

Q_SIGNALS:
    void leftByKey(int key);

protected:
    BarPartState state(bool marked) const;
    void keyPressEvent(QKeyEvent* event) override;
    int iconSide() const { return fontMetrics().height() + 2; }
};

/// The title bar of a group: a click opens and closes it. Checked while the group is open.
class ExplorerBarTitle final : public ExplorerBarPart {
    Q_OBJECT
public:
    ExplorerBarTitle(bool isHeavy, QWidget* parent);
    /// How far the group is open, from 0 to 1.
    void setOpened(double share);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void nextCheckState() override {} // the group decides

private:
    bool m_isHeavy;
    double m_opened = 1;
};

/// An item of a group. Checked while it is the chosen one.
class ExplorerBarItem final : public ExplorerBarPart {
    Q_OBJECT
public:
    explicit ExplorerBarItem(QWidget* parent);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void nextCheckState() override {} // the bar's owner decides
};

/// Sets the cursor that links have.
void SetHandCur(QWidget& widget);

} // namespace tarsel
