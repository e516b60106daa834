// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/PictureLimit.h"

#include "pixels/Picture.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/resource.h>
#include <unistd.h>

namespace tarsel {

namespace {

constexpr std::int64_t noLimit = INT64_MAX;
constexpr std::int64_t alwaysAllowed = std::int64_t(16'000) * 16'000;
/// The picture, the copy that its decoder makes, and the one that a task writes into, 4 bytes each.
constexpr std::int64_t bytesPerPixel = 12;

std::int64_t physicalMemory() {
    const std::int64_t pages = ::sysconf(_SC_PHYS_PAGES);
    return pages > 0 ? pages * ::sysconf(_SC_PAGESIZE) : noLimit;
}

std::int64_t addressSpace() {
    rlimit limit = {};
    const bool isLimited = ::getrlimit(RLIMIT_AS, &limit) == 0 && limit.rlim_cur < rlim_t(noLimit);
    return isLimited ? std::int64_t(limit.rlim_cur) : noLimit;
}

/// The number in a file of the kernel; "max" and a file that is missing are no limit.
std::int64_t limitIn(const std::filesystem::path& file) {
    std::int64_t limit = 0;
    return std::ifstream(file) >> limit ? limit : noLimit;
}

/// The group's own limit and those of the groups around it. Its line in /proc/self/cgroup is "0::/path".
std::int64_t controlGroups() {
    const std::string unified = "0::/";
    std::string line;
    for (std::ifstream groups("/proc/self/cgroup"); std::getline(groups, line);)
        if (line.starts_with(unified))
            break;
    std::int64_t limit = noLimit;
    const std::filesystem::path root = "/sys/fs/cgroup";
    for (auto group = root / line.substr(std::min(line.size(), unified.size()));
         group != root && group.has_relative_path(); group = group.parent_path())
        limit = std::min(limit, limitIn(group / "memory.max"));
    return limit;
}

} // namespace

std::int64_t memoryOfProcess() {
    return std::min({physicalMemory(), addressSpace(), controlGroups()});
}

std::int64_t largestPictureIn(std::int64_t memory) {
    return std::clamp(memory / bytesPerPixel, alwaysAllowed, Picture::maximumPixels);
}

std::int64_t largestPicture() {
    static const std::int64_t pixels = largestPictureIn(memoryOfProcess());
    return pixels;
}

} // namespace tarsel
