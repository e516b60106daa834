// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace tarsel::decoder {

/// Drops what an administrator's process may do, and any way to get new privileges, from this thread and
/// those that it starts later. False where that can't be done.
bool dropPrivileges();

/// The process is killed when its parent ends. False when the kernel can't do that.
bool endWithParent();

/// Drops what decoding doesn't need: descriptors after the socket, files, processes, most
/// memory, and all system calls but those of memory, the socket and the end of the process; another
/// one kills it. Returns the locks that the kernel lacks (bits of DecoderLock). Whatever a library sets up
/// when it is first used has to be used before.
///
/// Under the sanitizers the list of system calls and the memory limit are left out: their runtimes open
/// files and reserve address space.
std::uint32_t confineProcess();

} // namespace tarsel::decoder
