// SPDX-License-Identifier: MIT
#include "players/platform/PlayerError.h"
#include "players/platform/System.h"

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <memory>
#include <sys/auxv.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace tarsel::players {

namespace {

double seconds(const timespec& time) {
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
}

/// FNV-1a.
std::uint64_t fingerprintOf(std::string_view text) {
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const char letter : text)
        hash = (hash ^ std::uint8_t(letter)) * 0x100000001B3;
    return hash;
}

std::string programPath() {
    std::string path(4096, '\0');
    const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
    if (length > 0 && std::size_t(length) < path.size())
        return path.substr(0, std::size_t(length));
    // Where /proc is not mounted: as it was started.
    if (const auto* const started = reinterpret_cast<const char*>(getauxval(AT_EXECFN)))
        return started;
    throw PlayerError("The player can't find its own file.");
}

std::string withExtension(std::string path, std::string_view extension) {
    const std::size_t dot = path.rfind('.');
    const std::size_t slash = path.rfind('/');
    if (dot != std::string::npos && (slash == std::string::npos || dot > slash)) {
        if (strcasecmp(path.c_str() + dot, std::string(extension).c_str()) == 0)
            return path;
        path.resize(dot);
    }
    return path.append(extension);
}

void writeAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = write(descriptor, text.data(), text.size());
        if (written <= 0)
            return;
        text.remove_prefix(std::size_t(written));
    }
}

} // namespace

double secondsNow() {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return seconds(time);
}

ClockTime localTime() {
    timespec time{};
    clock_gettime(CLOCK_REALTIME, &time);
    tm parts{};
    localtime_r(&time.tv_sec, &parts);
    return {parts.tm_hour, parts.tm_min,  parts.tm_sec + double(time.tv_nsec) * 1e-9,
            parts.tm_wday, parts.tm_mday, parts.tm_mon + 1};
}

std::uint32_t randomSeed() {
    timespec time{};
    clock_gettime(CLOCK_REALTIME, &time);
    return std::uint32_t(time.tv_sec) * 2654435761u ^ std::uint32_t(time.tv_nsec) ^
           std::uint32_t(getpid()) << 16;
}

OwnFile openOwnFile(std::string_view extension) {
    const std::string path = withExtension(programPath(), extension);
    const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat status {};
    if (descriptor < 0 || fstat(descriptor, &status) != 0)
        throw PlayerError(path + ": " + std::strerror(errno) + ". This player's name has to end in " +
                          std::string(extension) + ".");
    const auto file = std::shared_ptr<const int>(new int(descriptor), [](const int* opened) {
        close(*opened);
        delete opened;
    });
    const auto read = [file](std::int64_t at, void* target, std::int64_t count) {
        return std::int64_t(pread(*file, target, std::size_t(count), at));
    };
    return {{read, status.st_size}, path};
}

// An abstract socket vanishes with the process and leaves no file.
bool isOnlyInstance(const std::string& place) {
    const char* const display = std::getenv("DISPLAY");
    const std::string full =
        std::to_string(getuid()) + ' ' + (display ? display : "") + ' ' + place + ' ' + programPath();
    // A name has 107 bytes, and paths can be longer.
    const std::string name = "tarsel-player " + std::to_string(fingerprintOf(full));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::size_t length = name.size();
    std::memcpy(address.sun_path + 1, name.data(), length);
    const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const auto size = socklen_t(offsetof(sockaddr_un, sun_path) + 1 + length);
    return descriptor < 0 || bind(descriptor, reinterpret_cast<const sockaddr*>(&address), size) == 0 ||
           errno != EADDRINUSE;
}

std::optional<std::uint64_t> hostWindow() {
    const char* const text = std::getenv("XSCREENSAVER_WINDOW");
    const std::uint64_t window = text ? std::strtoull(text, nullptr, 0) : 0;
    return window ? std::optional(window) : std::nullopt;
}

void complain(const std::string& line) {
    writeAll(STDERR_FILENO, line + '\n');
}

void print(std::string_view text) {
    writeAll(STDOUT_FILENO, text);
}

} // namespace tarsel::players
