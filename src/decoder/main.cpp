// SPDX-License-Identifier: GPL-3.0-or-later
// Decodes the files that come through the socket, one after the other, until the other end is gone. A file
// that crashes it, takes it over, or makes it ask for too much memory or time, costs this process alone.

#include "decoder/Confinement.h"
#include "decoder/MetafileDecoding.h"

#include <QThreadPool>
#include <malloc.h>
#include <poll.h>
#include <sys/mman.h>

namespace tarsel::decoder {

namespace {

/// A descriptor's bytes in memory.
class Mapping {
public:
    Mapping(const Descriptor& descriptor, std::size_t size, int protection, int sharing) :
        m_size(size),
        m_data(size > 0 ? ::mmap(nullptr, size, protection, sharing, descriptor.number(), 0) : MAP_FAILED) {}
    ~Mapping() {
        if (isMapped())
            ::munmap(m_data, m_size);
    }
    Mapping(const Mapping&) = delete;
    Mapping& operator=(const Mapping&) = delete;

    bool isMapped() const { return m_data != MAP_FAILED; }
    std::uint8_t* bytes() const { return static_cast<std::uint8_t*>(m_data); }

private:
    std::size_t m_size;
    void* m_data;
};

DecoderReply answer(const DecoderRequest& request, const std::vector<Descriptor>& descriptors) {
    const Mapping file(descriptors[0], request.fileBytes, PROT_READ, MAP_PRIVATE);
    const std::size_t room = std::size_t(request.width) * std::size_t(request.height) * 4;
    const Mapping pixels(descriptors[1], room, PROT_READ | PROT_WRITE, MAP_SHARED);
    if (!file.isMapped() || !pixels.isMapped())
        return {0, 0, 0, "no memory for it"};
    return decode(request, {file.bytes(), request.fileBytes}, pixels.bytes());
}

} // namespace

/// A parent that had died before endWithParent was called has left the other end of the socket closed.
bool isAlone() {
    pollfd socket{decoderSocket, POLLIN, 0};
    return ::poll(&socket, 1, 0) > 0 && (socket.revents & POLLHUP) != 0;
}

int run(std::uint32_t missingLocks) {
    prepareLibraries();
    missingLocks |= confineProcess();
    for (;;) {
        DecoderRequest request;
        std::vector<Descriptor> descriptors;
        if (!receiveRecord(decoderSocket, request, descriptors, requestDescriptors))
            return 0;
        DecoderReply reply = answer(request, descriptors);
        reply.serial = request.serial;
        reply.missingLocks = missingLocks;
        if (!sendRecord(decoderSocket, reply))
            return 0;
    }
}

} // namespace tarsel::decoder

int main() {
    // First of all: fonts take a while to load, and nobody may be there any more when they are.
    std::uint32_t missingLocks =
        tarsel::decoder::dropPrivileges() ? 0U : std::uint32_t(tarsel::PrivilegesLock);
    if (!tarsel::decoder::endWithParent())
        missingLocks |= tarsel::ParentLock;
    if (tarsel::decoder::isAlone())
        return 0;
    // An arena for each thread is trimmed after a look at /proc, where a locked process may not look.
    ::mallopt(M_ARENA_MAX, 1);
    // Qt divides large fills among its threads, unless it is in one of them already; none may be started
    // later.
    QThreadPool* threads = QThreadPool::globalInstance();
    threads->setMaxThreadCount(1);
    int status = 0;
    threads->start([&] { status = tarsel::decoder::run(missingLocks); });
    threads->waitForDone();
    return status;
}
