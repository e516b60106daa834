// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/PreviewPicture.h"
#include "imaging/ImageBox.h"
#include "output/VisiblePart.h"

#include <QPoint>
#include <QWidget>
#include <optional>

class QLabel;
class QMouseEvent;
class QScrollBar;

namespace tarsel {

class BeforeView;
class ImageBoxView;

/// The entries of the dialog's mnuPreview.
enum class PreviewLayout { BestFit = 0, ActualSize = 1, Split = 2 };

/// Where dragging takes a scroll bar: the point of the picture that was at `start` comes to `pointer`.
/// Nothing for a value beyond the bar's range, which is not taken.
std::optional<int> pannedValue(int value, double start, double pointer, int maximum);

/// The picture as it is and as its file has it, side by side or on the two sides of a line. Each has its own
/// scroll bars; what else scrolls or zooms one of them takes the other along.
class OptimizedPanes final : public QWidget {
    Q_OBJECT
public:
    explicit OptimizedPanes(QWidget* parent = nullptr);

    void showOriginal(const PreviewPicture& original);
    void showOptimized(PreviewPicture optimized);
    void setLayoutTo(PreviewLayout layout);
    PreviewLayout shownLayout() const { return m_layout; }
    /// A press takes a colour then, instead of dragging the picture.
    void setPicking(bool picking);
    /// What the pane of the optimized picture shows of it.
    VisibleArea visibleArea() const;
    double zoom() const; ///< of the original, percent

Q_SIGNALS:
    void layoutWanted(tarsel::PreviewLayout layout);
    void zoomChanged();
    void optimizedSeen();         ///< what was passed last is on the screen
    void visibleAreaChanged();    ///< by a scroll, or by another size of the pane
    void pointedAt(QPoint pixel); ///< of the picture, while a colour is being picked
    void picked();                ///< the button was released

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Pane {
        QWidget* holder;
        QLabel* caption;
        ImageBoxView* view;
    };

    Pane makePane(const char* name, const QString& title, ImageBox& box, const char* horizontal,
                  const char* vertical);
    void wantZoom(bool bestFit);
    void lineUp(const ImageBoxView& leading);
    void showCursor();
    ImageBoxView* viewOf(const QObject* viewport) const;
    bool press(const ImageBoxView& view, const QMouseEvent& event);
    void subPanStart(const ImageBoxView& view, QPointF position);
    void subPan(const ImageBoxView& view, QPointF position);
    void subPanEnd();
    void pointAt(const ImageBoxView& view, QPointF position);

    ImageBox m_original; ///< for the zoom; the views show what they are handed
    ImageBox m_optimized;
    Pane m_left;
    Pane m_right;
    BeforeView* m_before;
    QString m_path;          ///< by which the views know that they show the same picture again
    int m_originalWidth = 1; ///< pixels; the file may have fewer
    int m_optimizedWidth = 1;
    PreviewLayout m_layout = PreviewLayout::BestFit;
    bool m_isPicking = false;
    bool m_isPointing = false;       ///< a colour is being picked, with the button held
    std::optional<QPointF> m_panned; ///< the point of the picture that is held
};

} // namespace tarsel
