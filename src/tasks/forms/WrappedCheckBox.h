// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>

namespace tarsel {

/// A check box whose text takes more lines where there is no room for one.
class WrappedCheckBox final : public QCheckBox {
    Q_OBJECT
public:
    explicit WrappedCheckBox(QWidget* parent = nullptr);
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRect textRect(const QRect& area) const;
    QSize textSize(int width) const;
};

} // namespace tarsel
