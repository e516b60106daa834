// SPDX-License-Identifier: MIT
#include "players/platform/PlayerError.h"
#include "players/platform/System.h"
#include "players/platform/WideText.h"

#include <memory>
#include <windows.h>

namespace tarsel::players {

namespace {

std::wstring programPath() {
    std::wstring path(32768, L'\0');
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), DWORD(path.size()));
    if (length == 0 || length == path.size())
        throw PlayerError("The player can't find its own file.");
    path.resize(length);
    return path;
}

std::wstring withExtension(std::wstring path, std::string_view extension) {
    const std::size_t dot = path.rfind(L'.');
    const std::size_t slash = path.rfind(L'\\');
    if (dot != std::wstring::npos && (slash == std::wstring::npos || dot > slash))
        path.resize(dot);
    return path + wide(extension);
}

void write(DWORD stream, std::string_view text) {
    DWORD written = 0;
    WriteFile(GetStdHandle(stream), text.data(), DWORD(text.size()), &written, nullptr);
}

std::int64_t readAt(HANDLE file, std::int64_t at, void* target, std::int64_t count) {
    OVERLAPPED place{};
    place.Offset = DWORD(at);
    place.OffsetHigh = DWORD(at >> 32);
    DWORD read = 0;
    return ReadFile(file, target, DWORD(count), &read, &place) ? std::int64_t(read) : 0;
}

} // namespace

double secondsNow() {
    LARGE_INTEGER ticks{};
    LARGE_INTEGER frequency{};
    QueryPerformanceCounter(&ticks);
    QueryPerformanceFrequency(&frequency);
    return double(ticks.QuadPart) / double(frequency.QuadPart);
}

ClockTime localTime() {
    SYSTEMTIME time{};
    GetLocalTime(&time);
    return {time.wHour,      time.wMinute, time.wSecond + time.wMilliseconds / 1000.0,
            time.wDayOfWeek, time.wDay,    time.wMonth};
}

std::uint32_t randomSeed() {
    return std::uint32_t(GetTickCount64()) * 2654435761u ^ GetCurrentProcessId();
}

OwnFile openOwnFile(std::string_view extension) {
    const std::wstring path = withExtension(programPath(), extension);
    const HANDLE opened = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    LARGE_INTEGER size{};
    if (opened == INVALID_HANDLE_VALUE || !GetFileSizeEx(opened, &size))
        throw PlayerError(narrow(path) + " can't be opened. This player's name has to end in " +
                          std::string(extension) + ".");
    const std::shared_ptr<void> file(opened, CloseHandle);
    const auto read = [file](std::int64_t at, void* target, std::int64_t count) {
        return readAt(file.get(), at, target, count);
    };
    return {{read, size.QuadPart}, narrow(path)};
}

bool isOnlyInstance(const std::string& place) {
    std::wstring path = programPath();
    CharLowerBuffW(path.data(), DWORD(path.size()));
    std::uint64_t hash = 0xCBF29CE484222325; // FNV-1a: a name of an object holds no backslash
    for (const wchar_t letter : path)
        hash = (hash ^ std::uint64_t(letter)) * 0x100000001B3;
    const std::wstring name = wide("Local\\tarsel-player " + std::to_string(hash) + ' ' + place);
    return !CreateMutexW(nullptr, FALSE, name.c_str()) || GetLastError() != ERROR_ALREADY_EXISTS;
}

std::optional<std::uint64_t> hostWindow() {
    return std::nullopt; // it comes as an argument
}

void complain(const std::string& line) {
    write(STD_ERROR_HANDLE, line + '\n');
}

void print(std::string_view text) {
    write(STD_OUTPUT_HANDLE, text);
}

void showMessage(const std::string& title, const std::string& text) {
    MessageBoxW(nullptr, wide(text).c_str(), wide(title).c_str(), MB_OK | MB_ICONEXCLAMATION);
}

} // namespace tarsel::players
