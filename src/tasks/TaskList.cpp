// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/TaskList.h"

#include "base/Conversions.h"
#include "base/TrappedError.h"

#include <QCoreApplication>
#include <algorithm>

namespace tarsel {

namespace {

constexpr int redEye = 16;

QStringList batchHeaders() {
    QStringList headers{QStringLiteral("functionID")};
    for (int number = 1; number <= taskColumnCount; ++number)
        headers << QLatin1Char('p') + QString::number(number);
    return headers;
}

ListRow batchRow(const TaskRow& row) {
    ListRow listed;
    listed.text = row.kind;
    listed.tag = row.key;
    listed.subItems = QStringList(row.columns.begin(), row.columns.end());
    return listed;
}

ListRow shownRow(int kind, const QString& iconKey) {
    ListRow listed;
    listed.text = taskDisplayName(kind);
    listed.iconKey = iconKey;
    return listed;
}

/// Each kind that can be a row has an icon of its key; "generic" stands for any other.
bool hasIcon(const QString& key) {
    const auto isOfKey = [&](const TaskKind& kind) { return key == QLatin1String(kind.rowKey); };
    return key == QLatin1String("generic") || (!key.isEmpty() && std::ranges::any_of(taskKinds(), isOfKey));
}

} // namespace

TaskList::TaskList() :
    lvEditBatch(batchHeaders()), lvEdit({QCoreApplication::translate("TaskList", "Confirmed Tasks")}),
    lvEditPreview({QCoreApplication::translate("TaskList", "Confirmed Tasks")}) {}

TaskRow TaskList::row(int index) const {
    return taskRowOf(lvEditBatch, index);
}

void TaskList::append(const TaskRow& row, const QString& iconKey) {
    const int kind = toInt16(row.kind);
    if (kind != redEye)
        appendToAll(row, kind, iconKey.isEmpty() ? row.key : iconKey);
}

void TaskList::appendAsRead(const TaskRow& row, const QString& iconKey) {
    const int kind = toInt16(row.kind);
    if (!hasIcon(iconKey))
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("TaskList", "no task has the key \"%1\"").arg(iconKey));
    appendToAll(row, kind, iconKey);
}

void TaskList::appendToAll(const TaskRow& row, int kind, const QString& iconKey) {
    lvEdit.add(shownRow(kind, iconKey));
    lvEditPreview.add(shownRow(kind, iconKey));
    lvEditBatch.add(batchRow(row));
}

void TaskList::remove(int index) {
    if (index == -1)
        return;
    lvEditBatch.remove(index);
    lvEditPreview.remove(index);
    lvEdit.remove(index);
}

void TaskList::clear() {
    lvEdit.clear();
    lvEditBatch.clear();
    lvEditPreview.clear();
}

void TaskList::deselect() {
    for (ListView* list : {&lvEdit, &lvEditPreview})
        list->selectOnly(-1);
}

std::vector<TaskRow> TaskList::rows() const {
    std::vector<TaskRow> rows;
    for (int index = 0; index < count(); ++index)
        rows.push_back(row(index));
    return rows;
}

bool TaskList::isUnsaved() const {
    return count() > 0 && rows() != m_saved;
}

void TaskList::markSaved() {
    m_saved = rows();
}

TaskRow taskRowOf(const ListView& lvEditBatch, int index) {
    const ListRow& listed = lvEditBatch.row(index);
    TaskRow row{listed.text, listed.tag, {}};
    for (int number = 1; QString & text : row.columns)
        text = lvEditBatch.subItem(index, number++);
    return row;
}

} // namespace tarsel
