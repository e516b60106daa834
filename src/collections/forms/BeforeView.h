// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/forms/ScreenRenderer.h"

#include <QWidget>

namespace tarsel {

class CompareLine;
class ImageBoxView;
class PicturePlacement;

/// The picture before a change, over a view that shows the one after it: all of it, or what is left of a line
/// that the user moves. Each of the two is placed by its own size.
class BeforeView final : public QWidget {
    Q_OBJECT
public:
    explicit BeforeView(ImageBoxView& after);

    void setPicture(const PreviewPicture& before); ///< null for none
    void showAll(bool on);
    void compare(bool on);
    bool isOn() const { return m_showsAll || m_compares; }
    /// Whether the picture before is on the screen in its best quality.
    bool isSharp() const;
    double linePosition() const { return m_position; }

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void follow();
    void take(const ScreenRenderer::Rendered& rendered);
    PicturePlacement placement() const;
    void moveLine(double position);
    double positionOf(int x) const; ///< of a line at `x`
    double shownPosition() const;
    int lineX() const;

    ImageBoxView& m_after;
    CompareLine* m_line;
    bool m_showsAll = false;
    bool m_compares = false;
    double m_position = 0.5; ///< of the line, from the left edge of the picture after to its right one
    PreviewPicture m_before;
    quint64 m_number = 0; ///< of m_before, for the renderer
    Size m_requestedSize; ///< of the renderer
    bool m_requestedFull = false;
    ScreenRenderer::Rendered m_drawn;
    ScreenRenderer m_renderer;
};

} // namespace tarsel
