// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/FileStamp.h"
#include "base/TrappedError.h"
#include "codecs/PictureLimit.h"
#include "collections/LoadSource.h"
#include "collections/WorkQueue.h"
#include "tasks/TaskList.h"

#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

namespace tarsel {

/// A row whose picture was loaded and prepared, and on which the tasks ran as far as they came.
struct PreparedRow {
    ImageBox box; ///< its Tag is the size of the source, "640x480"
    bool isPicture = false;
    std::optional<TrappedError> loadFailure;
    std::optional<TrappedError> taskFailure;
};

/// Prepares the rows of a run one after the other, and the next ones meanwhile: up to two sources are loaded
/// ahead, and the next row's tasks run while the row before is written. At most three pictures are held, and
/// of those that are too large for that only one. What was done ahead is used only if that makes no
/// difference: the same file, not changed since, the same tasks.
///
/// To be called on one thread, which lets events run while it waits. Without read-ahead all work is done on
/// that thread, when it is asked for.
class RowAhead {
public:
    static constexpr int rowsAhead = 2; ///< rows after the one in work that may be loaded
    static constexpr int picturesHeld = 1 + rowsAhead;

    struct Rules {
        bool readAhead = true;
        bool upright = false;
        int pageNumber = 1;
        std::stop_token stop; ///< ends loads with error 18
        DrawnSize drawn = {}; ///< as of RowRun
        /// A picture that claims to have more is worked on with no other one in memory.
        std::int64_t maxPixels = largestPicture() / picturesHeld;
    };

    explicit RowAhead(Rules rules);
    ~RowAhead(); ///< stops what is in work, and lets events run until it has ended
    RowAhead(const RowAhead&) = delete;
    RowAhead& operator=(const RowAhead&) = delete;

    /// Begins to load the source of a row to come, unless it was begun before.
    void load(int row, const QString& path);
    /// Begins the row's tasks in a box with the settings of `box`.
    void begin(int row, const QString& path, const ImageBox& box, const std::vector<TaskRow>& tasks);
    /// The finished row, begun now where it wasn't before or in other circumstances. `onLoaded` is called
    /// when its source has been read and only the tasks are left.
    PreparedRow take(int row, const QString& path, const ImageBox& box, const std::vector<TaskRow>& tasks,
                     const std::function<void()>& onLoaded);
    /// Runs the last step of a row beside what was begun; raises what it raises.
    void finish(const std::function<void()>& work);

private:
    struct Load;
    struct Preparation;
    class Threads;

    std::unique_ptr<Threads> startThreads() const;
    std::shared_ptr<Load> takeLoad(int row, const QString& path);
    std::optional<PreparedRow> takeBegun(int row, const QString& path, const std::vector<TaskRow>& tasks,
                                         const std::function<void()>& onLoaded);
    PreparedRow prepareAlone(int row, const QString& path, const ImageBox& box,
                             const std::vector<TaskRow>& tasks, const std::function<void()>& onLoaded);
    void stopAndDrop();

    const Rules m_rules;
    std::vector<std::shared_ptr<Load>> m_loads;
    std::shared_ptr<Preparation> m_begun;
    std::unique_ptr<Threads> m_threads; ///< none while there is no read-ahead
};

} // namespace tarsel
