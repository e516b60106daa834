// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/LoadingFailure.h"

#include <QCoreApplication>

namespace tarsel {

void failLoading(const QString& fact) {
    throw TrappedError{ErrorNumber::InvalidPicture,
                       QCoreApplication::translate("fncLoadPicture", "Error loading picture %1").arg(fact)};
}

/// Without the name of the reason's own error, which says the same once more.
void failLoading(const TrappedError& reason) {
    const QString name = errorText(reason.number) + QStringLiteral(": ");
    failLoading(reason.description.startsWith(name) ? reason.description.mid(name.size())
                                                    : reason.description);
}

} // namespace tarsel
