// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/resource.h>

namespace tarsel::test {

/// Bounds the size of files as long as it lives, also for programs that are started: a disk that is full
/// after so many bytes, for any user.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &m_old);
        const rlimit limited = {bytes, m_old.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limited);
    }
    ~FileSizeLimit() { ::setrlimit(RLIMIT_FSIZE, &m_old); }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit m_old = {};
};

} // namespace tarsel::test
