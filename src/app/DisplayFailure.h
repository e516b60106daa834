// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tarsel {

/// While it lives, a display that can't be opened ends the program with a sentence on standard error and
/// status 1. Qt would abort, and advise to install the program again. What Qt says meanwhile is said at the
/// end.
class DisplayFailure final {
public:
    DisplayFailure();
    ~DisplayFailure();
    DisplayFailure(const DisplayFailure&) = delete;
    DisplayFailure& operator=(const DisplayFailure&) = delete;
};

} // namespace tarsel
