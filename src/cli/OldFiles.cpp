// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/OldFiles.h"

#include "base/FileNames.h"
#include "base/TrappedError.h"

#include <QCoreApplication>

namespace tarsel::cli {

void failForOldFile(const QString& path) {
    throw TrappedError{
        // the number's own text would blame the call
        ErrorNumber::InvalidCall,
        QCoreApplication::translate("CommandLine", "%1 exists; --overwrite replaces it").arg(path)};
}

void requireFree(const QString& path) {
    if (isNameTaken(path))
        failForOldFile(path);
}

} // namespace tarsel::cli
