// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/Replay.h"

#include "base/Conversions.h"
#include "base/Stop.h"
#include "base/TrappedError.h"

#include <QCoreApplication>

namespace tarsel {

namespace {

void perform(ImageBox& box, const TaskRow& row) {
    const TaskKind* kind = taskKind(toInt16(row.kind));
    if (kind && kind->replay)
        kind->replay(box, row);
}

QString inTask(const QString& key, int number, const QString& fact) {
    if (key.isEmpty())
        return QCoreApplication::translate("Replay", "task %1: %2").arg(number).arg(fact);
    return QCoreApplication::translate("Replay", "task %1 (%2): %3").arg(number).arg(key, fact);
}

} // namespace

void replayRow(ImageBox& box, const TaskRow& row, int number) {
    try {
        perform(box, row);
    } catch (TrappedError& error) {
        error.description = inTask(row.key, number, error.description);
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
