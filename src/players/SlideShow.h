// SPDX-License-Identifier: MIT
#pragma once

#include "players/PictureShow.h"
#include "players/SlideControls.h"

namespace tarsel::players {

/// A slide show: movement brings up its controls for a while. Space plays and pauses, arrows and the page
/// keys step; every other key, and a press beside the controls, ends it.
class SlideShow : public PictureShow {
public:
    using PictureShow::PictureShow;

    void draw(const Canvas& canvas, double now) override;
    double nextFrame(double now) const override;
    bool take(const Event& event, double now) override;
    bool hasPointer() const override { return m_hasControls; }

private:
    void moveTo(int x, int y, double now);
    bool press(int x, int y, double now);

    SlideControls m_controls;
    bool m_hasControls = false;
    bool m_isStale = false; ///< the frame on the screen
    double m_controlsEnd = 0;
    int m_x = -1;
    int m_y = -1;
};

} // namespace tarsel::players
