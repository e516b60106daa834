// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace tarsel {

/// The TIFF file of a picture of the screen: folder, prefix, the number as the shortest text of a single,
/// such as "Captured7055.475.tif". `drawn` is a random number from 0 to 1.
QString capturedFile(const QString& folder, const QString& prefix, double drawn);

/// Writes the file, on any thread; the number counts on where something has the name. Returns the path.
/// Errors are those of SafeFileWriter.
QString saveCapturedFile(const QString& folder, const QString& prefix, double drawn, const QByteArray& bytes);

} // namespace tarsel
