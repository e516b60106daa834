// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/Replay.h"

#include "base/Conversions.h"
#include "base/Stop.h"
#include "base/TrappedError.h"

namespace tarsel {

namespace {

void perform(ImageBox& box, const TaskRow& row) {
    const TaskKind* kind = taskKind(toInt16(row.kind));
    if (kind && kind->replay)
        kind->replay(box, row);
}

} // namespace

void replayRow(ImageBox& box, const TaskRow& row, int number) {
    try {
        perform(box, row);
    } catch (TrappedError& error) {
        const QString key = row.key.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(row.key);
        error.description = QStringLiteral("task %1%2: %3").arg(number).arg(key, error.description);
        throw;
    }
}

void replayRows(ImageBox& box, std::span<const TaskRow> rows, const std::stop_token& stop) {
    const StopScope scope(stop);
    int number = 0;
    for (const TaskRow& row : rows) {
        raiseIfStopped();
        replayRow(box, row, ++number);
    }
}

} // namespace tarsel
