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

// libjpeg-turbo with nothing around it, and how little a thumbnail needs: the decoder reduces as far as it
// can, and means of the rest are taken.
void loadBareJpeg(const QByteArray& file);
void saveBareJpeg(const Picture& picture, int quality);
void makeBareThumbnail(const QByteArray& file, int side);

} // namespace tarsel::bench
