// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace tarsel::test {

/// Runs `steps` in a forked child, which ends without destructors. Returns what they returned, or minus the
/// number of the signal that ended the child; 99 when they threw.
int inChild(const std::function<int()>& steps);

/// From now on this process (a child that inChild made) gets `errnoValue` from a system call. With `flags`
/// only calls whose argument of this index has one of them set.
void failSystemCall(int number, int errnoValue);
void failSystemCall(int number, int errnoValue, int argument, unsigned flags);

/// From now on this process ends by SIGSYS instead of making that system call.
void dieAtSystemCall(int number);

/// As on a file system that can't make files without a name.
void refuseUnnamedFiles();

} // namespace tarsel::test
