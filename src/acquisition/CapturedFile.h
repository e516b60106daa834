// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <functional>

namespace tarsel {

/// A random number below 9999, from which the name of a capture is made. For the main thread only.
float drawCaptureNumber();

/// The file of a capture: the folder, the prefix, the number as a single-precision value in its shortest
/// form, ".tif".
QString capturedFile(const QString& folder, const QString& prefix, float number);

/// Makes that file, under the first number from `number` on whose name nothing has, and returns its path.
/// `beforeEach` is called with each path that is tried. For any thread: a folder of the network may take its
/// time.
QString writeCapturedFile(const QString& folder, const QString& prefix, float number, const QByteArray& bytes,
                          const std::function<void(const QString&)>& beforeEach = {});

} // namespace tarsel
