// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/FileIdentity.h"
#include "base/TrappedError.h"
#include "output/SourceGuard.h"

namespace tarsel::cli {

/// A picture that was read only in part must not be saved over its own file, of which the rest would be lost:
/// one that is damaged (`damage` says how), or one page of several. Error 481 then.
inline void requireAllToReplace(const QString& damage, const QString& source, const QString& target) {
    if (!damage.isEmpty() && FileIdentity::of(source) == FileIdentity::of(target))
        throw TrappedError{ErrorNumber::InvalidPicture,
                           readInPartText(target) + QStringLiteral("; ") + damage};
    if (replacesItsPages(source, target))
        throw TrappedError{ErrorNumber::InvalidPicture, readInPartText(target)};
}

} // namespace tarsel::cli
