// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imaging/ImageBox.h"

#include <QPixmap>
#include <QWidget>

namespace tarsel {

/// Shows the picture of an ImageBox, fitted whole into the room there is, and never enlarged beyond it.
class ImageBoxView final : public QWidget {
    Q_OBJECT
public:
    explicit ImageBoxView(ImageBox& box, QWidget* parent = nullptr);

    /// To be called when the box holds another picture.
    void boxChanged();
    QSize sizeHint() const override { return {320, 320}; }
    QSize minimumSizeHint() const override { return {80, 80}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void fitBox();

    ImageBox& m_box;
    QPixmap m_scaled; ///< of the last paint; null when it must be made anew
};

} // namespace tarsel
