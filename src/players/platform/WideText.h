// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <windows.h>

namespace tarsel::players {

inline std::wstring wide(std::string_view text) {
    std::wstring result(
        std::size_t(MultiByteToWideChar(CP_UTF8, 0, text.data(), int(text.size()), nullptr, 0)), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), int(text.size()), result.data(), int(result.size()));
    return result;
}

inline std::string narrow(std::wstring_view text) {
    const auto convert = [&](char* target, int size) {
        return WideCharToMultiByte(CP_UTF8, 0, text.data(), int(text.size()), target, size, nullptr, nullptr);
    };
    std::string result(std::size_t(convert(nullptr, 0)), '\0');
    convert(result.data(), int(result.size()));
    return result;
}

} // namespace tarsel::players
