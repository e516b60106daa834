// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// What writer and reader of joined files agree on; the layout stands in JoinedWriter.h.
namespace tarsel::joined {

inline constexpr std::string_view optionsName = "OPTIONS";
/// The tag of a text, and its length.
inline constexpr std::string_view trailerHeader{"\x08\x00\x0B\x00", 4};
inline constexpr std::size_t positionDigits = 10;
inline constexpr std::uint64_t lastPosition = 9'999'999'999; ///< that has so many digits
inline constexpr std::size_t trailerSize = trailerHeader.size() + positionDigits + 1;

} // namespace tarsel::joined
