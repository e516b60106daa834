// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>

namespace tarsel {

/// Before the application object, which reads fonts and icons in the home folder and waits for them without
/// end: a process without HOME gets that of the user database. Where the home, or a folder for data,
/// settings or caches in it or named by XDG_DATA_HOME and its kin, doesn't answer in time, an empty temporary
/// folder takes the place of all. False when it did.
bool takeHomeThatAnswers(std::chrono::milliseconds longestWait = std::chrono::seconds(3));

} // namespace tarsel
