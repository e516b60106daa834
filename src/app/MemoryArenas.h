// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tarsel {

/// Before the first thread begins. The C library may give each thread an arena, up to eight for a core, and
/// each keeps up to 64 MB that its threads have freed: a gigabyte on two cores after an hour of work.
/// Pictures are few and large, so that two arenas, or one for four cores, are as fast.
void limitMemoryArenas();

} // namespace tarsel
