// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarsel::joined {

// The options record of a joined file: fields one after the other without a gap, integers little-endian.
// Colours are 0x00BBGGRR.

/// Of a screen saver or slide show: 6 bytes.
struct SaverOptions {
    std::int32_t backColor = 0;
    std::int16_t interval = 3; ///< seconds between pictures

    bool operator==(const SaverOptions&) const = default;
};

/// Of a greeting: the text with a count of 16 bits before it, then fields of 4, 1, 1, 4, 4, 4, 4 and 4 bytes.
struct EffectOptions {
    std::string rollingText; ///< in Windows-1252, or UTF-8 where that can't hold it
    std::int32_t rollingTextColor = 0;
    std::uint8_t clockKind = 0; ///< 0 analog, 1 digital
    std::uint8_t showDate = 0;
    std::int32_t dateColor = 0;
    std::int32_t digitalColor = 0;
    std::int32_t hourColor = 0;
    std::int32_t minuteColor = 0;
    std::int32_t secondColor = 0;

    bool operator==(const EffectOptions&) const = default;
};

std::string bytesOf(const SaverOptions& options);
/// Nothing for a text of more than 65535 bytes.
std::optional<std::string> bytesOf(const EffectOptions& options);

/// The record at the start of `bytes`; nothing where they end within it.
std::optional<SaverOptions> saverOptions(std::string_view bytes);
std::optional<EffectOptions> effectOptions(std::string_view bytes);

} // namespace tarsel::joined
