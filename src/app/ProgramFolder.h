// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tarsel {

/// The program folder of this user: configuration and folder Temp lie there. Made when it is missing; error
/// 76 when that fails.
QString makeProgramFolder();

/// The folder of the sample pictures that come with the program; empty when there is none.
QString samplesFolder();

/// Deletes the files without an extension in the folder Temp. Errors are ignored.
void deleteFilesWithoutExtension(const QString& temporaryFolder);

} // namespace tarsel
