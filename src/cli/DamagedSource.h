// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/FileIdentity.h"
#include "base/TrappedError.h"
#include "output/SourceGuard.h"

namespace tarsel::cli {

/// A damaged picture (`damage` says how) must not be saved over its own file, of which the unread rest would
/// be lost: error 481 then.
inline void requireAllToReplace(const QString& damage, const QString& source, const QString& target) {
    if (!damage.isEmpty() && FileIdentity::of(source) == FileIdentity::of(target))
        throw TrappedError{ErrorNumber::InvalidPicture,
                           readInPartText(target) + QStringLiteral("; ") + damage};
}

} // namespace tarsel::cli
