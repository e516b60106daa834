// SPDX-License-Identifier: MIT
#include "players/effects/ClockText.h"

#include <algorithm>
#include <string_view>

namespace tarsel::players {

namespace {

std::u32string twoDigits(int number) {
    return {char32_t(U'0' + number / 10 % 10), char32_t(U'0' + number % 10)};
}

/// One of the names of three letters that follow each other in `names`.
std::u32string_view nameOf(std::u32string_view names, int index) {
    return names.substr(std::size_t(std::clamp(index, 0, int(names.size()) / 3 - 1)) * 3, 3);
}

} // namespace

HandAngles handAngles(const ClockTime& time) {
    const double minutes = time.minute + time.second / 60;
    return {(time.hour % 12 + minutes / 60) * 30, minutes * 6, time.second * 6};
}

std::u32string timeText(const ClockTime& time) {
    return twoDigits(time.hour) + U':' + twoDigits(time.minute) + U':' + twoDigits(int(time.second));
}

std::u32string dateText(const ClockTime& time) {
    return std::u32string(nameOf(U"SunMonTueWedThuFriSat", time.weekday)) + U" , " + twoDigits(time.day) +
           U' ' + std::u32string(nameOf(U"JanFebMarAprMayJunJulAugSepOctNovDec", time.month - 1));
}

} // namespace tarsel::players
