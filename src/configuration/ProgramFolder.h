// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tarsel {

/// The program folder of this user: it holds the configuration and the folder Temp. Made when it is missing;
/// the error of the reason when that fails.
QString makeProgramFolder();

/// The folder, or that of the user's pictures when it is in the program folder, which is hidden and not a
/// place for pictures.
QString visibleFolder(const QString& folder);

/// The folder of the sample pictures that come with the program; empty when there is none.
QString samplesFolder();

} // namespace tarsel
