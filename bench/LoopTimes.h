// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QSize>
#include <QString>

#include <functional>
#include <vector>

namespace tarsel {

double milliseconds(const QElapsedTimer& clock);
double median(std::vector<double> values);

/// Writes a JPEG picture with smooth areas, edges and grain.
void writePicture(const QString& path, QSize size);

/// Lets the event loop run until then; a timer must wake it up every millisecond. Returns its longest turn in
/// milliseconds.
double runUntil(const std::function<bool()>& condition);

} // namespace tarsel
