// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imaging/ImageBox.h"

#include <QPixmap>
#include <QWidget>

namespace tarsel {

/// Shows the picture of an ImageBox, fitted completely into the space there is, and never enlarged beyond it.
class ImageBoxView final : public QWidget {
    Q_OBJECT
public:
    explicit ImageBoxView(ImageBox& box, QWidget* parent = nullptr);

    /// To be called when the box holds another picture; `display` is that picture in the screen's colours.
    void boxChanged(const Picture& display);
    QSize sizeHint() const override { return {320, 320}; }
    QSize minimumSizeHint() const override { return {80, 80}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void fitBox();
    void drawScaled();

    ImageBox& m_box;
    Picture m_display;
    QPixmap m_scaled;         ///< of the last paint
    bool m_isStale = true;    ///< m_scaled shows another picture or size
    bool m_isShowing = false; ///< as of the last change of the box
};

} // namespace tarsel
