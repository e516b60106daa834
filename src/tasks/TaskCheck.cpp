// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/TaskCheck.h"

#include "base/Conversions.h"
#include "base/TrappedError.h"
#include "tasks/TaskColumns.h"
#include "tasks/TaskList.h"
#include "tasks/TaskWords.h"
#include "tasks/frmFrameDummy.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace tarsel {

namespace {

using State = TaskCheck::State;

QString outsideRange(const TaskColumn& column, const QString& text) {
    return QCoreApplication::translate("TaskCheck", "%1 is %2, outside %3 to %4")
        .arg(nameInWords(column), text, QString::number(column.limits.lowest),
             QString::number(column.limits.highest));
}

bool isOutside(const TaskColumn& column, double value) {
    const bool isNumber = column.type != ColumnType::Text && column.type != ColumnType::Path;
    return isNumber && column.limits.bounded &&
           (value < column.limits.lowest || value > column.limits.highest);
}

void checkColumn(const TaskColumn& column, const TaskRow& row, TaskCheck& check) {
    const QString& text = column.text(row);
    if (isOutside(column, column.value(text)) && (check.reason.isEmpty() || column.limits.strict))
        check = {column.limits.strict ? State::Failed : State::Ok, outsideRange(column, text)};
    if (column.type == ColumnType::Path && !QFileInfo(text).isFile())
        check = {State::Failed,
                 QCoreApplication::translate("TaskCheck", "the file \"%1\" is missing").arg(text)};
}

void requireSize(const TaskRow& row) {
    using column::Resize;
    if (row[Resize::toSize] ? row[Resize::width] < 1 || row[Resize::height] < 1 : row[Resize::percent] < 1)
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("TaskCheck", "the new size has to be at least 1"));
}

/// Raises the error of a run that fails whatever the picture: no size, or artwork that doesn't exist.
void requireUsable(int kind, const TaskRow& row) {
    if (kind == 3)
        requireSize(row);
    if (kind == 13 && row[column::Frame::plain] == 0)
        frmFrameDummy::requireBorder(row[column::Frame::number]);
    if (kind == 14)
        frmFrameDummy::requireMask(row[column::Mask::number]);
    if (kind == 15)
        frmFrameDummy::requireBorder(row[column::Shadow::number] + frmFrameDummy::frameCount);
}

TaskCheck failed(const QString& reason) {
    return {State::Failed, reason};
}

TaskCheck checkColumns(std::span<const TaskColumn> columns, const TaskRow& row) {
    TaskCheck check;
    for (const TaskColumn& column : columns) {
        try {
            if (isRead(column, columns, row))
                checkColumn(column, row, check);
        } catch (const TrappedError& error) {
            return failed(QCoreApplication::translate("TaskCheck", "%1: %2")
                              .arg(nameInWords(column), error.description));
        }
    }
    return check;
}

} // namespace

TaskCheck checkRow(const TaskRow& row) {
    int number = 0;
    try {
        number = toInt16(row.kind);
    } catch (const TrappedError& error) {
        return failed(error.description);
    }
    const TaskKind* kind = taskKind(number);
    if (!kind || !kind->replay)
        return {State::Skipped,
                QCoreApplication::translate("TaskCheck", "no task has the kind %1").arg(number)};
    const TaskCheck check = checkColumns(taskColumns(number), row);
    if (check.state != State::Ok)
        return check;
    try {
        requireUsable(number, row);
    } catch (const TrappedError& error) {
        return failed(error.description);
    }
    return check;
}

} // namespace tarsel
