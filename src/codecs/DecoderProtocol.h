// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "bytes/Descriptor.h"

#include <cstddef>
#include <cstdint>
#include <type_traits>

// What the program and its decoder process say to each other, over a socket that keeps the bounds of
// messages. Both ends come from one build and run on one machine, so the records are sent as they are in
// memory. No Qt here: the decoder starts without it.
namespace tarsel {

constexpr int DecoderSocket = 3; ///< descriptor that the decoder finds its socket on

enum class DecoderFormat : std::uint32_t { Metafile };

/// Comes with a descriptor from which the file's bytes can be mapped.
struct DecoderRequest {
    DecoderFormat format = DecoderFormat::Metafile;
    std::uint32_t serial = 0; ///< comes back in the reply
    std::uint64_t fileBytes = 0;
    std::int32_t width = 0; ///< that the picture is to have
    std::int32_t height = 0;
};

/// With a picture (width above 0) comes a descriptor that holds its rows from the top, 3 or 4 bytes a pixel,
/// without padding; otherwise the message says what was wrong.
struct DecoderReply {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t channels = 0;
    char message[240] = {};
    std::uint32_t serial = 0; ///< of the request
};

/// One message and a descriptor (-1 for none). False, with errno, when it can't be sent.
bool sendMessage(int socket, const void* record, std::size_t size, int descriptor);

/// The next message; false when the other end is gone or the message has another size.
bool receiveMessage(int socket, void* record, std::size_t size, Descriptor& descriptor);

// Records have no padding, whose bytes would be whatever the stack held.
template <class Record>
bool sendRecord(int socket, const Record& record, int descriptor) {
    static_assert(std::is_trivially_copyable_v<Record> && std::has_unique_object_representations_v<Record>);
    return sendMessage(socket, &record, sizeof record, descriptor);
}

template <class Record>
bool receiveRecord(int socket, Record& record, Descriptor& descriptor) {
    static_assert(std::is_trivially_copyable_v<Record> && std::has_unique_object_representations_v<Record>);
    return receiveMessage(socket, &record, sizeof record, descriptor);
}

} // namespace tarsel
