// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "base/TrappedError.h"
#include "collections/LoadSource.h"
#include "collections/RowResult.h"
#include "tasks/TaskList.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <stop_token>
#include <vector>

namespace tarsel {

/// What a run does with the rows of a list.
struct RowRun {
    const ListView& rows;
    int firstRow = 1; ///< rows outside are not done, but keep their numbers
    int lastRow = 0;  ///< 0: to the last
    bool upright = false;
    std::function<std::vector<TaskRow>()> tasks; ///< asked for each row
    std::stop_token stop; ///< ends the loading of a row's picture: that row and the rest are cancelled
    std::function<void(const RowResult&)> onRow; ///< called for each row as soon as it is done
    /// The next sources are read, and the next row's tasks run, while a row is in work. The results are the
    /// same without it.
    bool readAhead = true;
    bool goesOn = false; ///< after a row that failed; else its error ends the run
    /// Pictures are only drawn, and no task changes them: they may be loaded smaller, as loadPrepared says.
    DrawnSize drawn = {};

    /// The last row to do; the list may have shrunk since the start.
    int lastThere() const { return lastRow > 0 ? std::min(lastRow, rows.count()) : rows.count(); }
};

/// The last step of a run: what becomes of each picture. All but the work that `consume` returns is called on
/// the thread of the run, in the order of the rows; any of it may raise errors, which end the run.
class RowConsumer {
public:
    virtual ~RowConsumer() = default;
    /// Where a row's source can be read now: another path when the run itself replaced that file.
    virtual QString readablePath(const QString& source) const { return source; }
    /// Whether the row's source has to be read at all. Asked for rows to come as well, more than once.
    virtual bool needsPicture(const ListRow&) { return true; }
    /// For a row that doesn't: returns the work that is done in place of the other.
    virtual std::function<void()> consumeUnread(const ListRow&, RowResult&) { return {}; }
    /// Decides on the picture in `box`, as the tasks left it, and fills in the row's target. Returns the work
    /// that is left, mostly writing; the next row's tasks may begin beside it, but see nothing of the box.
    /// It returns false when it has skipped the row, or when a file turned up under a name that must be new.
    /// Returns nothing when the row's result is final.
    virtual std::function<bool()> consume(const ListRow& row, ImageBox& box, RowResult& result) = 0;
    /// For a row whose source holds no picture, or failed to load with that error. Returns the work that is
    /// done in place of the other; nothing where none is, and such a failure ends the run.
    virtual std::function<void()> consumeWithoutPicture(const ListRow&, RowResult&,
                                                        const std::optional<TrappedError>&) {
        return {};
    }
    /// That work has succeeded.
    virtual void noteWritten(const RowResult&) {}
    /// Nothing more is done for the row, whatever became of it.
    virtual void noteDone(RowResult&) {}
};

/// The file that the user knows a row by: of an extracted page that is its document.
QString shownSource(const ListRow& row);

} // namespace tarsel
