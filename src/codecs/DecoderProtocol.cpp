// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/DecoderProtocol.h"

#include <cerrno>
#include <cstring>
#include <sys/socket.h>

namespace tarsel {

namespace {

/// Room for the control message that carries one descriptor.
struct ControlRoom {
    alignas(cmsghdr) char bytes[CMSG_SPACE(sizeof(int))] = {};
};

} // namespace

bool sendMessage(int socket, const void* record, std::size_t size, int descriptor) {
    iovec part{const_cast<void*>(record), size};
    ControlRoom room;
    msghdr message = {};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    if (descriptor >= 0) {
        message.msg_control = room.bytes;
        message.msg_controllen = sizeof room.bytes;
        cmsghdr* control = CMSG_FIRSTHDR(&message);
        control->cmsg_level = SOL_SOCKET;
        control->cmsg_type = SCM_RIGHTS;
        control->cmsg_len = CMSG_LEN(sizeof(int));
        std::memcpy(CMSG_DATA(control), &descriptor, sizeof descriptor);
    }
    ssize_t sent = 0;
    do
        sent = ::sendmsg(socket, &message, MSG_NOSIGNAL);
    while (sent < 0 && errno == EINTR);
    return sent == ssize_t(size);
}

bool receiveMessage(int socket, void* record, std::size_t size, Descriptor& descriptor) {
    iovec part{record, size};
    ControlRoom room;
    msghdr message = {};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    message.msg_control = room.bytes;
    message.msg_controllen = sizeof room.bytes;
    ssize_t got = 0;
    do
        got = ::recvmsg(socket, &message, MSG_CMSG_CLOEXEC);
    while (got < 0 && errno == EINTR);
    const cmsghdr* control = got >= 0 ? CMSG_FIRSTHDR(&message) : nullptr;
    if (control && control->cmsg_level == SOL_SOCKET && control->cmsg_type == SCM_RIGHTS) {
        int number = -1;
        std::memcpy(&number, CMSG_DATA(control), sizeof number);
        descriptor.reset(number);
    }
    return got == ssize_t(size);
}

} // namespace tarsel
