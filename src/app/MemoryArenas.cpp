// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MemoryArenas.h"

#include <algorithm>
#include <malloc.h>
#include <thread>

namespace tarsel {

void limitMemoryArenas() {
    ::mallopt(M_ARENA_MAX, std::max(2, int(std::thread::hardware_concurrency() / 4)));
}

} // namespace tarsel
