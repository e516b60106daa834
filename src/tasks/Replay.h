// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tasks/TaskList.h"

#include <span>
#include <stop_token>

namespace tarsel {

// Replay works on the box alone: any thread may call it with a box of its own.

/// Replays one row; unknown kinds are skipped. An error names the row by `number`, from 1, and its key.
void replayRow(ImageBox& box, const TaskRow& row, int number);

/// Replays rows from the first to the last. An error ends the run; the rows before it stay applied. A stop
/// ends it with error 18 before the next row, and while a picture to merge is being decoded.
void replayRows(ImageBox& box, std::span<const TaskRow> rows, const std::stop_token& stop = {});

} // namespace tarsel
