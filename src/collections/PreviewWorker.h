// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/TrappedError.h"
#include "imaging/ImageBox.h"
#include "imaging/fncLoadPicture.h"
#include "tasks/TaskList.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace tarsel {

/// Loads pictures and runs tasks on them on a thread of its own. One request waits at most: the newest.
class PreviewWorker {
public:
    struct Request {
        quint64 number = 0; ///< comes back with the result
        QString path;       ///< of the file to load; empty to start from `original`
        Picture original;
        MetadataStore metadata; ///< of `original`
        ImageBox box;           ///< the settings from which the tasks start; without picture and metadata
        Size displayLimit{3840, 2400};
        std::vector<TaskRow> tasks;
        bool upright = false; ///< the picture loaded is turned by its EXIF orientation
    };
    struct Result {
        quint64 number = 0;
        QString path;
        ImageBox box;     ///< empty when the file can't be read
        Picture original; ///< as loaded, without the tasks
        Picture display;  ///< the box's picture for the screen: in its colours, not larger than the limit
        std::optional<TrappedError> failure; ///< of a task: the tasks before it have run
    };

    /// `deliver` is called on the worker's thread.
    explicit PreviewWorker(std::function<void(Result)> deliver);
    /// Waits for the request in work.
    ~PreviewWorker();
    PreviewWorker(const PreviewWorker&) = delete;
    PreviewWorker& operator=(const PreviewWorker&) = delete;

    /// Replaces what waits, and stops what is in work, which delivers nothing then.
    void request(Request request);
    void cancel();

private:
    void run();
    std::optional<Request> next();

    std::function<void(Result)> m_deliver;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::optional<Request> m_waiting;
    std::stop_source m_current;
    bool m_ending = false;
    std::thread m_thread;
};

} // namespace tarsel
