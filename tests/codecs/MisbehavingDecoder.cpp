// SPDX-License-Identifier: GPL-3.0-or-later
// A decoder process that does what the file's bytes say, after the header when it is a GIF file: it answers,
// breaks the protocol in one of the ways that a damaged decoder can, or does what one that was taken over
// would try. Each request adds a byte to the file "<this program's path>.requests" where there is one.

#include "codecs/DecoderProtocol.h"
#include "decoder/Confinement.h"

#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace tarsel;

namespace {

[[noreturn]] void sleepForever() {
    for (;;)
        ::pause();
}

void answerWith(std::uint32_t serial, int channels, std::initializer_list<int> descriptors = {}) {
    sendRecord(decoderSocket, DecoderReply{serial, channels, 0, "a\x1B\nb"}, descriptors);
}

/// Gray pixels.
void answer(std::uint32_t serial, const Descriptor& pixels) {
    const char bytes[] = {7, 7, 7, 7, 7, 7};
    if (::pwrite(pixels.number(), bytes, sizeof bytes, 0) == sizeof bytes)
        answerWith(serial, 3);
}

/// Sends the text after its first byte, whose bits say how many descriptors go with it and whether the serial
/// number of the request is put in place, and exits.
[[noreturn]] void send(std::string_view text, std::uint32_t serial) {
    const unsigned kind = text.empty() ? 0 : static_cast<unsigned char>(text[0]);
    std::string bytes(text.substr(text.empty() ? 0 : 1));
    if ((kind & 4) != 0 && bytes.size() >= sizeof serial)
        std::memcpy(bytes.data(), &serial, sizeof serial);
    const auto message = std::as_bytes(std::span(bytes));
    switch (kind & 3) {
    case 0:
        sendMessage(decoderSocket, message);
        break;
    case 1:
        sendMessage(decoderSocket, message, {0});
        break;
    default:
        sendMessage(decoderSocket, message, {0, 1, 2, 0, 1, 2, 0, 1});
    }
    std::_Exit(0);
}

/// The same when an order is carried out and when it fails: only the end of the process refuses it.
void attempt(std::string_view order, std::uint32_t serial) {
    decoder::confineProcess();
    if (order == "open a file")
        ::open("/dev/null", O_RDONLY);
    if (order == "open a socket")
        ::socket(AF_INET, SOCK_STREAM, 0);
    if (order == "start a shell")
        ::execl("/bin/sh", "sh", nullptr);
    if (order == "start a process")
        ::fork();
    if (order == "signal the parent")
        ::syscall(SYS_tgkill, ::getppid(), ::getppid(), 0);
    if (order == "make memory executable")
        ::mmap(nullptr, 4096, PROT_READ | PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (order == "raise a limit") {
        const rlimit more{10, 10};
        ::setrlimit(RLIMIT_CPU, &more);
    }
    answerWith(serial, 0);
}

void perform(std::string_view order, std::uint32_t serial, const std::vector<Descriptor>& descriptors) {
    if (order == "answer")
        return answer(serial, descriptors[1]);
    if (order == "answer, then exit") {
        answer(serial, descriptors[1]);
        std::_Exit(0);
    }
    if (order == "answer an earlier request")
        return answer(serial - 1, descriptors[1]);
    if (order == "bad words")
        return answerWith(serial, 0);
    if (order == "an odd number of channels")
        return answerWith(serial, 5);
    if (order == "send descriptors")
        return answerWith(serial, 3, {0, 1, 2});
    if (order == "shrink the memory for pixels")
        return answerWith(serial, ::ftruncate(descriptors[1].number(), 0) == 0 ? 3 : 0);
    if (order == "change the file")
        return answerWith(serial, ::pwrite(descriptors[0].number(), "x", 1, 0) == 1 ? 3 : 0);
    if (order == "look at the environment")
        return answerWith(serial, *environ ? 3 : 0);
    if (order == "half an answer")
        sendMessage(decoderSocket, std::as_bytes(std::span(order.data(), 8)));
    if (order == "close the socket")
        ::close(decoderSocket);
    if (order == "exit")
        std::_Exit(3);
    if (order == "crash")
        std::abort();
    if (order.starts_with("send: "))
        send(order.substr(6), serial);
    if (order.starts_with("locked: "))
        return attempt(order.substr(8), serial);
    sleepForever();
}

} // namespace

int main(int, char** arguments) {
    const std::string counter = std::string(arguments[0]) + ".requests";
    for (;;) {
        DecoderRequest request;
        std::vector<Descriptor> descriptors;
        if (!receiveRecord(decoderSocket, request, descriptors, requestDescriptors))
            return 0;
        constexpr std::size_t wmfHeaders = 40;
        char order[1024];
        const ssize_t size = ::pread(descriptors[0].number(), order, sizeof order, 0);
        std::string_view text(order, size < 0 ? 0 : std::size_t(size));
        if (text.starts_with("\xD7\xCD"))
            text.remove_prefix(wmfHeaders);
        std::fstream(counter, std::ios::in | std::ios::out | std::ios::ate) << '.';
        perform(text, request.serial, descriptors);
    }
}
