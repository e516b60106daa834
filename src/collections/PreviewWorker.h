// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/TrappedError.h"
#include "collections/NewestWork.h"
#include "collections/PreviewPicture.h"
#include "collections/ReducedStart.h"
#include "imaging/ImageBox.h"
#include "imaging/QuickPicture.h"
#include "tasks/TaskList.h"

#include <optional>
#include <vector>

namespace tarsel {

/// Loads pictures and runs tasks on them on a thread of its own. One request waits at most: the newest.
class PreviewWorker {
public:
    struct Request {
        quint64 number = 0; ///< comes back with the results
        QString path;       ///< of the file to load; empty to work on `start`
        Picture start;
        Picture original;       ///< as loaded, when `path` is empty
        MetadataStore metadata; ///< of `start`
        ImageBox box;           ///< the settings from which the tasks start; without picture and metadata
        Size view{1920, 1080};  ///< where the picture will be shown
        std::vector<TaskRow> tasks;
        std::optional<TaskRow> preview{};   ///< a task that the user is trying, run as its preview
        bool followsOptions = false;        ///< of the preview: see PreviewReason
        bool reducedFirst = false;          ///< where that looks the same, the preview of a smaller picture
        bool upright = false;               ///< the picture loaded is turned by its EXIF orientation
        QuickPictureReader readStored = {}; ///< finds what stands in for a picture that is slow to read
    };
    struct Result {
        quint64 number = 0;
        QString path;
        PreviewPicture shown;
        bool isFinal =
            true;       ///< false for a picture that only stands in for a large one; the rest is empty then
        ImageBox box{}; ///< empty when the file can't be read
        Picture original{};                    ///< as loaded, without the tasks
        std::optional<TrappedError> failure{}; ///< of a task: the tasks before it have run
    };

    /// `deliver` is called on the worker's thread: for a large picture more than once for a request, the
    /// final result last.
    explicit PreviewWorker(std::function<void(Result)> deliver);

    /// Replaces what waits, and stops what is in work, which delivers nothing then.
    void request(Request request) { m_work.request(std::move(request)); }
    void cancel() { m_work.cancel(); }

private:
    ReducedStart m_reducedStart; ///< belongs to the thread
    NewestWork<Request> m_work;
};

} // namespace tarsel
