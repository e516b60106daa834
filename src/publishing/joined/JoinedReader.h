// SPDX-License-Identifier: MIT
#pragma once

#include "bytes/TiffStructure.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tarsel::joined {

struct JoinedPicture {
    std::string name;
    std::uint64_t offset = 0;
    std::uint64_t size = 0; ///< of the JPEG file; the zero byte after it is not counted
};

/// What a joined file holds. All blocks are inside the file and before the list.
struct JoinedContents {
    std::vector<JoinedPicture> pictures;
    std::uint64_t optionsOffset = 0;
    std::uint64_t listOffset = 0; ///< the options end before it
};

/// Reads the list from the file's end. Nothing for a file that isn't joined, or whose list names a block that
/// isn't there.
std::optional<JoinedContents> readJoined(const ByteSource& file);

/// Bytes of one block; nothing where the file has become shorter.
std::optional<std::string> blockOf(const ByteSource& file, std::uint64_t offset, std::uint64_t size);

} // namespace tarsel::joined
