// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"

#include <QPoint>
#include <QRect>
#include <QString>
#include <optional>
#include <vector>

namespace tarsel {

/// A monitor, in pixels of the picture of the screen.
struct Monitor {
    QRect area;
    QString name; ///< of its connector, such as "HDMI-1"
};

/// The whole screen as it stood: the smallest rectangle that holds all monitors, whose top left corner is
/// pixel 0, 0. One pixel of a monitor is one pixel here, whatever its scale; what no monitor shows is black.
struct ScreenPicture {
    Picture picture;
    std::vector<Monitor> monitors;
    bool isChosen = false;              ///< by the user, whom the desktop asked what is to be on it
    std::optional<QPoint> pointer = {}; ///< the pixel that it was on, where that is known
};

} // namespace tarsel
