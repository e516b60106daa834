// SPDX-License-Identifier: GPL-3.0-or-later
// Decodes the files that come through the socket, one after the other, until the other end is gone. A file
// that crashes it, or makes it ask for too much memory or time, costs this process alone.

#include "decoder/MetafileDecoding.h"

#include <QThreadPool>
#include <csignal>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarsel::decoder {

namespace {

constexpr rlim_t MemoryLimit = rlim_t(4) << 30;
constexpr rlim_t SecondsForOneFile = 30; // of processor time
constexpr rlim_t DescriptorLimit = 16;

void limit(decltype(RLIMIT_AS) resource, rlim_t amount) {
    const rlimit both{amount, RLIM_INFINITY};
    ::setrlimit(resource, &both);
}

void setHardLimit(decltype(RLIMIT_AS) resource, rlim_t amount) {
    const rlimit both{amount, amount};
    ::setrlimit(resource, &both);
}

void limitProcess() {
    ::close_range(DecoderSocket + 1, ~0U, 0);
    setHardLimit(RLIMIT_CORE, 0);
    setHardLimit(RLIMIT_NOFILE, DescriptorLimit);
#if !defined __SANITIZE_ADDRESS__ && !defined __SANITIZE_THREAD__ // their shadows alone are larger
    setHardLimit(RLIMIT_AS, MemoryLimit);
#endif
}

/// The limit counts from the start of the process; each file gets its own share.
void allowTimeForOneFile() {
    rusage used = {};
    ::getrusage(RUSAGE_SELF, &used);
    limit(RLIMIT_CPU, rlim_t(used.ru_utime.tv_sec + used.ru_stime.tv_sec) + SecondsForOneFile);
}

DecoderReply answer(const DecoderRequest& request, int content, Descriptor& pixels) {
    struct stat facts = {};
    const std::size_t size = request.fileBytes;
    const bool complete =
        ::fstat(content, &facts) == 0 && facts.st_size >= 0 && std::size_t(facts.st_size) == size;
    void* file =
        complete && size > 0 ? ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, content, 0) : MAP_FAILED;
    if (file == MAP_FAILED)
        return {0, 0, 0, "its bytes didn't arrive"};
    const std::size_t room = std::size_t(request.width) * std::size_t(request.height) * 4;
    pixels.reset(::memfd_create("pixels", MFD_CLOEXEC));
    if (!pixels.isOpen() || ::ftruncate(pixels.number(), off_t(room)) != 0)
        return {0, 0, 0, "no memory for its pixels"};
    void* target = ::mmap(nullptr, room, PROT_READ | PROT_WRITE, MAP_SHARED, pixels.number(), 0);
    if (target == MAP_FAILED)
        return {0, 0, 0, "no memory for its pixels"};
    const DecoderReply reply =
        decode(request, {static_cast<const std::uint8_t*>(file), size}, static_cast<std::uint8_t*>(target));
    ::munmap(target, room);
    ::munmap(file, size);
    return reply;
}

} // namespace

int run() {
    prepareLibraries();
    limitProcess();
    for (;;) {
        DecoderRequest request;
        Descriptor content;
        if (!receiveRecord(DecoderSocket, request, content))
            return 0;
        allowTimeForOneFile();
        Descriptor pixels;
        DecoderReply reply = answer(request, content.number(), pixels);
        reply.serial = request.serial;
        if (!sendRecord(DecoderSocket, reply, reply.width > 0 ? pixels.number() : -1))
            return 0;
    }
}

} // namespace tarsel::decoder

int main() {
    // Qt divides large fills among its threads, unless it is in one of them already; none may be started
    // later.
    QThreadPool* threads = QThreadPool::globalInstance();
    threads->setMaxThreadCount(1);
    int status = 0;
    threads->start([&status] { status = tarsel::decoder::run(); });
    threads->waitForDone();
    return status;
}
