// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "bytes/Messages.h"

#include <cstdint>

// What the program and its decoder process say to each other. No Qt here: the decoder starts without it.
namespace tarsel {

constexpr int decoderSocket = 3; ///< descriptor that the decoder finds its socket on

enum class DecoderFormat : std::uint32_t { Metafile };

/// Comes with two descriptors that can be mapped: the file's bytes for reading; for writing, room for the
/// pixels, with four bytes for each. Neither can change its size.
struct DecoderRequest {
    DecoderFormat format = DecoderFormat::Metafile;
    std::uint32_t serial = 0; ///< comes back in the reply
    std::uint64_t fileBytes = 0;
    std::int32_t width = 0; ///< that the picture is to have
    std::int32_t height = 0;
};
constexpr std::size_t requestDescriptors = 2;

/// With 3 or 4 channels the picture is in the room for pixels: rows from the top without padding; a message
/// says what is missing in it. With 0 the message says why there is none.
struct DecoderReply {
    std::uint32_t serial = 0; ///< of the request
    std::int32_t channels = 0;
    std::uint32_t missingLocks = 0; ///< bits of DecoderLock
    char message[240] = {};
};

/// A part of the decoder's confinement that the kernel may lack.
enum DecoderLock : std::uint32_t {
    SystemCallsLock = 1, ///< the list of allowed system calls
    PrivilegesLock = 2,  ///< no capabilities, and no new privileges
    ParentLock = 4,      ///< ends with its parent
    LimitsLock = 8,      ///< resource limits
    DescriptorsLock = 16 ///< no inherited descriptors
};

} // namespace tarsel
