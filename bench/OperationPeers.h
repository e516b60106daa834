// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"

#include <functional>
#include <vector>

namespace tarsel::bench {

struct Peer {
    const char* name;
    std::function<void()> work;
};

/// The same work on a picture of 24 bits, done by Qt and, where it is installed, by OpenCV on one thread. The
/// picture must outlive the calls.
std::vector<Peer> peersOn(const Picture& picture);

} // namespace tarsel::bench
