// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tarsel {

/// The file of a new capture: the folder, the prefix, a random number below 9999 as a single-precision value
/// in its shortest form, ".tif". Drawn again where the folder has that name.
QString newCapturedFile(const QString& folder, const QString& prefix);

} // namespace tarsel
