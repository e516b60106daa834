// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "tasks/TaskRow.h"

#include <QString>
#include <array>
#include <vector>

namespace tarsel {

class ImageBox;

/// Replays a row of one kind on the picture in the box. Settings are written to the box before the operation,
/// in a fixed order, and stay there. Raises what the conversions and the box raise.
using ReplayStep = void (*)(ImageBox& box, const TaskRow& row);

/// One of the sixteen tasks that taskKinds() lists.
struct TaskKind {
    int number;
    const char* panelKey;
    const char* panelCaption; ///< this, the display name and the title: English, in the context "TaskKinds"
    const char* rowKey;       ///< empty for the kind that is never a row
    const char* displayName;  ///< empty for the kind that is never a row
    const char* optionTitle;
    ReplayStep replay; ///< null for the kind that is never a row
};
const std::array<TaskKind, 16>& taskKinds();

/// The kind of that number, or null when there is none.
const TaskKind* taskKind(int number);

/// The display name of a kind in the user's language; empty for a kind outside 1 to 15.
QString taskDisplayName(int kind);

/// The task basket: one store and two views of it, always of the same rows in the same order.
class TaskList {
public:
    ListView lvEditBatch; ///< never shown: text is the kind, Tag the key, SubItems p1 to p17
    ListView lvEdit; ///< "Confirmed Tasks" in the tab "Task Basket": text is the display name, icon by key
    ListView lvEditPreview; ///< the same beside the preview

    TaskList();
    int count() const { return lvEditBatch.count(); }
    TaskRow row(int index) const;
    /// Appends a row to all three lists; a row of kind 16 is not appended. The icon is named by the row's
    /// key, or by `iconKey` when one is given. Error 13 or 6, and nothing appended, when the kind is not
    /// a 16-bit number.
    void append(const TaskRow& row, const QString& iconKey = {});
    /// The same for a row of a file, of whatever kind: unknown kinds have no name and are passed over at
    /// replay. Error 5 when there is no icon of that name.
    void appendAsRead(const TaskRow& row, const QString& iconKey);
    /// Removes row `index` from all three; -1 does nothing.
    void remove(int index);
    void clear();
    /// No row is selected any more, in either view.
    void deselect();

    /// Whether there are rows that differ from those of the last markSaved().
    bool isUnsaved() const;
    void markSaved(); ///< a file holds the rows

private:
    void appendToAll(const TaskRow& row, int kind, const QString& iconKey);
    std::vector<TaskRow> rows() const;

    std::vector<TaskRow> m_saved;
};

/// A row of lvEditBatch as a TaskRow.
TaskRow taskRowOf(const ListView& lvEditBatch, int index);

} // namespace tarsel
