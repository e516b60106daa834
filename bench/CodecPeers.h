// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"

#include <QByteArray>
#include <string>
#include <vector>

namespace tarsel::bench {

/// Another library that reads and writes whole files in memory, on one thread. False where it can't.
struct CodecPeer {
    const char* name;
    bool (*load)(const QByteArray& file);
    bool (*save)(const Picture& picture, const std::string& extension); ///< of 24 bits
};

/// Those whose development files are installed.
std::vector<CodecPeer> codecPeers();

} // namespace tarsel::bench
