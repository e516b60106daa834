// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>

namespace tarsel::samples {

// One picture each, in scenes/.
QImage alpineMorning();
QImage mountainLake();
QImage dunes();
QImage starryNight();
QImage eveningClouds();
QImage foggyForest();
QImage rainyWindow();
QImage openSea();
QImage lavender();
QImage northernLights();
QImage mistyIslands();

} // namespace tarsel::samples
