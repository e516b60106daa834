// SPDX-License-Identifier: GPL-3.0-or-later
// A decoder process that does what the file's bytes say, after the header when it is a GIF file: it answers,
// or breaks the protocol in one of the ways that a damaged decoder can. Each request adds a byte to the file
// that the environment's TARSEL_DECODER_REQUESTS names.

#include "codecs/DecoderProtocol.h"

#include <cstdlib>
#include <fstream>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>

using namespace tarsel;

namespace {

[[noreturn]] void sleepForever() {
    for (;;)
        ::pause();
}

void answerWith(std::uint32_t serial, int descriptor) {
    sendRecord(DecoderSocket, DecoderReply{2, 1, 3, {}, serial}, descriptor);
}

/// Two gray pixels.
void answer(std::uint32_t serial) {
    const Descriptor pixels(::memfd_create("pixels", 0));
    const char bytes[] = {7, 7, 7, 7, 7, 7};
    if (::write(pixels.number(), bytes, sizeof bytes) == sizeof bytes)
        answerWith(serial, pixels.number());
}

void answerWithAPipe(std::uint32_t serial) {
    static int ends[2]; // the other end stays open
    if (::pipe(ends) == 0)
        answerWith(serial, ends[0]);
}

void countRequest() {
    if (const char* path = std::getenv("TARSEL_DECODER_REQUESTS"))
        std::ofstream(path, std::ios::app) << '.';
}

void perform(std::string_view order, std::uint32_t serial) {
    if (order == "answer")
        return answer(serial);
    if (order == "answer, then exit") {
        answer(serial);
        std::_Exit(0);
    }
    if (order == "answer an earlier request")
        return answer(serial - 1);
    if (order == "no pixels")
        return answerWith(serial, -1);
    if (order == "too few pixels")
        return answerWith(serial, ::memfd_create("empty", 0));
    if (order == "pixels from a pipe")
        return answerWithAPipe(serial);
    if (order == "half an answer")
        sendMessage(DecoderSocket, order.data(), 8, -1);
    if (order == "close the socket")
        ::close(DecoderSocket);
    if (order == "exit")
        std::_Exit(3);
    if (order == "crash")
        std::abort();
    sleepForever();
}

} // namespace

int main() {
    for (;;) {
        DecoderRequest request;
        Descriptor content;
        if (!receiveRecord(DecoderSocket, request, content))
            return 0;
        char order[64];
        const ssize_t size = ::pread(content.number(), order, sizeof order, 0);
        std::string_view text(order, size < 0 ? 0 : std::size_t(size));
        if (text.starts_with("GIF89a"))
            text.remove_prefix(13);
        countRequest();
        perform(text, request.serial);
    }
}
