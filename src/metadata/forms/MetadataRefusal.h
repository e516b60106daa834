// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace tarsel {

/// Runs a step of a command, on the main thread; false when it failed. What a user meets in ordinary work,
/// such as a text too long for its field, a file that is read-only or a full disk, is a message of its own;
/// any other failure is reported under the routine's name.
bool runOrRefuse(const char* routine, const std::function<void()>& step);

} // namespace tarsel
