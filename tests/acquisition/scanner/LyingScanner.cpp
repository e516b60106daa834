// SPDX-License-Identifier: GPL-3.0-or-later
// A process for scanners whose answer to the first frame is what the name of the device says: a page of one
// black pixel, or one of the ways to break the protocol.

#include "acquisition/scanner/ScannerProtocol.h"
#include "bytes/Messages.h"

#include <algorithm>
#include <string>

using namespace tarsel;

namespace {

constexpr int parentSocket = 3;
constexpr int endOfFrame = 5;

void send(ScannerReplyKind kind, std::uint32_t serial, std::span<const std::byte> bytes = {},
          std::uint32_t promised = 0) {
    const ScannerReply reply{.kind = kind,
                             .serial = serial,
                             .status = kind == ScannerReplyKind::Answer ? endOfFrame : 0,
                             .bytes = std::max(promised, std::uint32_t(bytes.size()))};
    sendRecord(parentSocket, reply);
    if (!bytes.empty())
        sendMessage(parentSocket, bytes);
}

void sendFrame(const std::string& kind, std::uint32_t serial) {
    using enum ScannerReplyKind;
    const ScannerFrame frame{0, 1, 1, 1, 1, 8};
    const auto all = std::as_bytes(std::span(&frame, 1));
    const std::byte line[] = {std::byte(0)};
    if (kind == "no page")
        return send(Answer, serial);
    if (kind == "answer to another request")
        ++serial;
    if (kind == "too many bytes")
        send(Lines, serial, {}, (16U << 20) + 1);
    if (kind == "lines first")
        send(Lines, serial, line);
    if (kind == "half a frame")
        send(Frame, serial, all.first(all.size() / 2));
    else
        send(Frame, serial, all);
    if (kind == "two frames")
        send(Frame, serial, all);
    send(Lines, serial, line);
    send(Answer, serial);
}

} // namespace

int main() {
    std::string device;
    ScannerRequest request;
    std::vector<Descriptor> none;
    while (receiveRecord(parentSocket, request, none, 0)) {
        std::string text(request.bytes, ' ');
        if (!text.empty())
            receiveMessage(parentSocket, std::as_writable_bytes(std::span(text)), none, 0);
        if (request.command == ScannerCommand::Open)
            device = text;
        if (request.command == ScannerCommand::StartFrame)
            sendFrame(device, request.serial);
        else
            sendRecord(parentSocket, ScannerReply{.serial = request.serial});
    }
}
