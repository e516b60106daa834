// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tarsel::programIdentity {

/// What the program calls itself to the user.
inline const QString title = QStringLiteral("Tarsel JPEG");
/// What follows the title in the caption of message boxes.
inline const QString comment = QStringLiteral("Document Generator");
/// Base of the executable's name, of the program folder and of the configuration file.
inline const QString name = QStringLiteral("tarsel-jpeg");

} // namespace tarsel::programIdentity
