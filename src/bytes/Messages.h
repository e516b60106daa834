// SPDX-License-Identifier: MIT
#pragma once

#include "bytes/Descriptor.h"

#include <cstddef>
#include <initializer_list>
#include <span>
#include <type_traits>
#include <vector>

// Messages between processes, over a socket that keeps their bounds (SOCK_SEQPACKET). The other end is not
// trusted: a message counts only when it has the expected length and number of descriptors, and descriptors
// that were not expected are closed.
namespace tarsel {

/// Descriptors in one message at most. More are closed by the kernel, and the message is refused.
constexpr std::size_t maxMessageDescriptors = 8;

/// False, with errno, when the message can't be sent completely.
bool sendMessage(int socket, std::span<const std::byte> bytes, std::initializer_list<int> descriptors = {});

/// Fills `bytes` from the next message and returns its descriptors in `descriptors`. False when the other
/// end is closed, or the message has another length or other than `count` descriptors.
bool receiveMessage(int socket, std::span<std::byte> bytes, std::vector<Descriptor>& descriptors,
                    std::size_t count);

// Both ends of a record come from one build and run on one machine: it is sent as it is in memory. Records
// have no padding, whose bytes would be whatever the stack held.
template <class Record>
concept MessageRecord =
    std::is_trivially_copyable_v<Record> && std::has_unique_object_representations_v<Record>;

template <MessageRecord Record>
bool sendRecord(int socket, const Record& record, std::initializer_list<int> descriptors = {}) {
    return sendMessage(socket, std::as_bytes(std::span(&record, 1)), descriptors);
}

template <MessageRecord Record>
bool receiveRecord(int socket, Record& record, std::vector<Descriptor>& descriptors, std::size_t count) {
    return receiveMessage(socket, std::as_writable_bytes(std::span(&record, 1)), descriptors, count);
}

} // namespace tarsel
