// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/forms/ScreenRenderer.h"
#include "collections/forms/SelectionOverlay.h"
#include "imaging/ImageBox.h"
#include "imaging/PicturePlacement.h"

#include <QAbstractScrollArea>
#include <QTimer>
#include <optional>

namespace tarsel {

/// Shows the picture of an ImageBox: fitted completely into the space there is, or each of its pixels as one
/// of the screen, with scroll bars. What is drawn comes from the renderer; until it does, the drawing before
/// is scaled.
class ImageBoxView final : public QAbstractScrollArea {
    Q_OBJECT
public:
    explicit ImageBoxView(ImageBox& box, QWidget* parent = nullptr);

    /// To be called when there is another picture to show, or none.
    void pictureChanged(const PreviewPicture& shown);
    /// Until then the drawing before stays, after a moment with the word that another one is being read.
    void expect(const QString& path);
    /// What the view says while it has no picture.
    void setHint(const QString& text);
    /// Applies the zoom mode; both scroll bars go to 0.
    void subFixedSizeTiff(bool bestFit);
    /// Places the picture in its container, and sets the box to the size that it is drawn in.
    void FitImage();

    bool isBestFit() const { return m_isBestFit; }
    /// Of the picture on the screen, in device pixels of the viewport.
    const PicturePlacement& placement() const { return m_placement; }
    const QString& drawnPath() const { return m_drawnPath; } ///< of the picture on the screen
    SelectionOverlay& selection() { return m_selection; }
    /// Whether the picture shown last is on the screen, and in its best quality.
    bool isCurrent() const { return !m_isRendering && m_drawn.number == m_number; }
    bool isSharp() const;
    Size container() const; ///< device pixels of the viewport
    QSize sizeHint() const override { return {320, 320}; }
    QSize minimumSizeHint() const override { return {80, 80}; }

Q_SIGNALS:
    void zoomChanged();
    void containerResized(); ///< also before the first picture
    void zoomModeWanted(bool bestFit);
    void neighbourWanted(int step);
    void scrolledHere(); ///< by the wheel, a key or zooming; not by a scroll bar

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    /// What is at the position of the view stays there.
    void zoomAt(QPointF position, bool bestFit);
    void take(const ScreenRenderer::Rendered& rendered);
    void requestRendering();
    Size wantedSize() const;
    bool needsFull() const { return !m_isBestFit && !m_shown.isReduced; }
    Size devicePixels(QSize logical) const;
    QPointF devicePoint(QPointF logical) const { return logical * devicePixelRatioF(); }
    PicturePlacement placementIn(Size container) const;
    void setBars();
    void setBar(QScrollBar& bar, int maximum, int page) const;
    void showCursor();
    void describe();
    bool canScroll() const;
    bool handleKey(int key);
    void tellScrolledFrom(QPoint before);

    void paintNotice(QPainter& painter) const;
    QString strip() const;

    ImageBox& m_box;
    PreviewPicture m_shown;           ///< what is to be shown
    ScreenRenderer::Rendered m_drawn; ///< what is on the screen
    QString m_drawnPath;
    QString m_hint;
    PicturePlacement m_placement; ///< of m_drawn
    bool m_isBestFit = true;
    bool m_isRendering = false;
    quint64 m_number = 0; ///< of m_shown, for the renderer
    QString m_expected;   ///< path of a picture that is a long time coming
    QTimer m_patience;
    std::optional<QPointF> m_panned; ///< where the pointer was last while it drags the picture
    ScreenRenderer m_renderer;
    SelectionOverlay m_selection{*viewport()};
};

} // namespace tarsel
