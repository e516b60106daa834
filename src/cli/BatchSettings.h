// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/Arguments.h"
#include "configuration/ConfigRecord.h"
#include "output/BatchSave.h"

namespace tarsel::cli {

/// The answers of the batch dialog, from the options of `batch`. Throws UsageError.
settings::BatchSave batchSettings(const Arguments& arguments);

/// The slice of rows of "--rows A-B", also "A-", "-B" and "A". Throws UsageError.
BatchRun batchRun(const Arguments& arguments);

/// Whether the user said where the files go.
bool namesDestination(const Arguments& arguments);

} // namespace tarsel::cli
