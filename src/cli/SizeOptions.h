// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/Arguments.h"
#include "imaging/SizeBudget.h"

namespace tarsel::cli {

/// What `encode` and `batch` have for files that must not be larger.
inline constexpr OptionSpec maxSizeOption{
    "max-size", "SIZE",
    QT_TRANSLATE_NOOP("CommandLine",
                      "the best quality that makes a JPEG file of at most so many bytes; also 200K or 2M")};
inline constexpr OptionSpec minQualityOption{
    "min-quality", "1..100", QT_TRANSLATE_NOOP("CommandLine", "with --max-size: not below (default: 40)")};
inline constexpr OptionSpec shrinkOption{
    "shrink", nullptr,
    QT_TRANSLATE_NOOP("CommandLine", "with --max-size: fewer pixels where that quality is still too large")};

/// No limit without --max-size. Throws UsageError.
SizeBudget sizeBudget(const Arguments& arguments);

} // namespace tarsel::cli
