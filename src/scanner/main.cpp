// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the drivers of scanners for the program at the other end of the socket, until that is gone. A driver
// that crashes or hangs costs this process alone.

#include "bytes/Messages.h"
#include "scanner/Device.h"

#include <algorithm>
#include <array>
#include <clocale>
#include <csignal>
#include <libintl.h>
#include <sys/prctl.h>

namespace tarsel::scanner {

namespace {

constexpr int parentSocket = 3;

/// False when nobody is there any more.
bool sendBytes(std::span<const std::byte> bytes) {
    for (; !bytes.empty(); bytes = bytes.subspan(std::min(bytes.size(), scannerChunk)))
        if (!sendMessage(parentSocket, bytes.first(std::min(bytes.size(), scannerChunk))))
            return false;
    return true;
}

bool send(ScannerReply reply, std::span<const std::byte> bytes = {}) {
    reply.bytes = std::uint32_t(bytes.size());
    return sendRecord(parentSocket, reply) && sendBytes(bytes);
}

bool receiveText(std::uint32_t size, std::string& text) {
    text.resize(std::min(size, mostRequestBytes));
    std::vector<Descriptor> none;
    return size == 0 || receiveMessage(parentSocket, std::as_writable_bytes(std::span(text)), none, 0);
}

/// Passes on what the driver reads, until the end of the frame. False when nobody is there any more.
bool sendFrame(Device& device, ScannerReply reply) {
    static std::array<std::byte, scannerChunk> room;
    ScannerFrame frame;
    SANE_Status status = device.start(frame);
    if (status == SANE_STATUS_GOOD) {
        reply.kind = ScannerReplyKind::Frame;
        if (!send(reply, std::as_bytes(std::span(&frame, 1))))
            return false;
    }
    reply.kind = ScannerReplyKind::Lines;
    while (status == SANE_STATUS_GOOD) {
        SANE_Int count = 0;
        status = device.read(room, count);
        if (count > 0 && !send(reply, std::span(room).first(std::size_t(count))))
            return false;
    }
    reply.kind = ScannerReplyKind::Answer;
    reply.status = status;
    return send(reply);
}

/// False when nobody is there any more.
bool serve(const ScannerRequest& request, const std::string& text, Device& device) {
    PackedWriter packed;
    ScannerReply reply;
    reply.serial = request.serial;
    switch (request.command) {
    case ScannerCommand::ListDevices:
        reply.status = device.list(packed);
        break;
    case ScannerCommand::Open:
        reply.status = device.open(text);
        break;
    case ScannerCommand::Close:
        device.close();
        break;
    case ScannerCommand::ReadOptions:
        reply.status = device.readOptions(packed);
        break;
    case ScannerCommand::SetOption:
        reply.status = device.set(request, text, reply.info, reply.word);
        break;
    case ScannerCommand::StartFrame:
        return sendFrame(device, reply);
    case ScannerCommand::EndPages:
        device.rest();
        break;
    }
    return send(reply, packed.bytes());
}

void run() {
    Device device;
    ScannerRequest request;
    std::string text;
    std::vector<Descriptor> none;
    bool goesOn = true;
    while (goesOn && receiveRecord(parentSocket, request, none, 0)) {
        forgetCancel(); // of a signal that came after the answer
        goesOn = receiveText(request.bytes, text) && serve(request, text, device);
    }
}

} // namespace

} // namespace tarsel::scanner

int main() {
    // When the parent dies, the device comes to rest as after a cancel; the closed socket ends this process.
    ::prctl(PR_SET_PDEATHSIG, SIGINT);
    tarsel::scanner::watchForCancel();
    std::setlocale(LC_CTYPE, "");
    std::setlocale(LC_MESSAGES, "");
    ::bind_textdomain_codeset("sane-backends", "UTF-8");
    tarsel::scanner::run();
}
