// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <future>
#include <thread>
#include <utility>

namespace tarsel {

/// Starts work on a thread that nobody has to wait for, unlike that of std::async: a file system of the
/// network may never answer. The work owns all that it uses.
template <class Work>
auto startUnwaited(Work work) {
    std::packaged_task<decltype(work())()> task(std::move(work));
    auto result = task.get_future();
    std::thread(std::move(task)).detach();
    return result;
}

} // namespace tarsel
