// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/OldFiles.h"

#include "base/TrappedError.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace tarsel::cli {

bool isTaken(const QString& path) {
    const QFileInfo file(path);
    return file.exists() || file.isSymLink(); // a dangling link leads to a file elsewhere
}

void failForOldFile(const QString& path) {
    throw TrappedError{
        // the number's own text would blame the call
        ErrorNumber::InvalidCall,
        QCoreApplication::translate("CommandLine", "%1 exists; --overwrite replaces it").arg(path)};
}

void requireFree(const QString& path) {
    if (isTaken(path))
        failForOldFile(path);
}

} // namespace tarsel::cli
