// SPDX-License-Identifier: MIT
#include "bytes/Messages.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <sys/socket.h>

namespace tarsel {

namespace {

/// Room for the control message that carries descriptors.
struct ControlRoom {
    alignas(cmsghdr) std::byte bytes[CMSG_SPACE(maxMessageDescriptors * sizeof(int))] = {};
};

void attach(msghdr& message, ControlRoom& room, std::initializer_list<int> descriptors) {
    const std::size_t size = descriptors.size() * sizeof(int);
    message.msg_control = room.bytes;
    message.msg_controllen = CMSG_SPACE(size);
    cmsghdr* control = CMSG_FIRSTHDR(&message);
    control->cmsg_level = SOL_SOCKET;
    control->cmsg_type = SCM_RIGHTS;
    control->cmsg_len = CMSG_LEN(size);
    std::memcpy(CMSG_DATA(control), descriptors.begin(), size);
}

void takeDescriptors(msghdr& message, std::vector<Descriptor>& descriptors) {
    for (cmsghdr* control = CMSG_FIRSTHDR(&message); control; control = CMSG_NXTHDR(&message, control)) {
        if (control->cmsg_level != SOL_SOCKET || control->cmsg_type != SCM_RIGHTS)
            continue;
        const std::size_t count = (control->cmsg_len - CMSG_LEN(0)) / sizeof(int);
        for (std::size_t i = 0; i < count; ++i) {
            int number = -1;
            std::memcpy(&number, CMSG_DATA(control) + i * sizeof number, sizeof number);
            descriptors.emplace_back(number);
        }
    }
}

template <class Call>
ssize_t untilNotInterrupted(Call call) {
    ssize_t result = 0;
    do
        result = call();
    while (result < 0 && errno == EINTR);
    return result;
}

} // namespace

bool sendMessage(int socket, std::span<const std::byte> bytes, std::initializer_list<int> descriptors) {
    if (descriptors.size() > maxMessageDescriptors) {
        errno = EINVAL;
        return false;
    }
    iovec part{const_cast<std::byte*>(bytes.data()), bytes.size()};
    ControlRoom room;
    msghdr message = {};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    if (descriptors.size() > 0)
        attach(message, room, descriptors);
    return untilNotInterrupted([&] { return ::sendmsg(socket, &message, MSG_NOSIGNAL); }) ==
           ssize_t(bytes.size());
}

bool receiveMessage(int socket, std::span<std::byte> bytes, std::vector<Descriptor>& descriptors,
                    std::size_t count) {
    descriptors.clear();
    iovec part{bytes.data(), bytes.size()};
    ControlRoom room;
    msghdr message = {};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    message.msg_control = room.bytes;
    message.msg_controllen = sizeof room.bytes;
    const ssize_t got = untilNotInterrupted([&] { return ::recvmsg(socket, &message, MSG_CMSG_CLOEXEC); });
    if (got >= 0)
        takeDescriptors(message, descriptors);
    const bool isCut = message.msg_flags & (MSG_TRUNC | MSG_CTRUNC);
    if (got == ssize_t(bytes.size()) && !isCut && descriptors.size() == count)
        return true;
    descriptors.clear();
    return false;
}

} // namespace tarsel
