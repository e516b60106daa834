// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/scanner/ScanOption.h"

#include <span>

namespace tarsel {

/// The devices of an answer. Nothing for bytes that are none.
std::optional<std::vector<ScanDevice>> unpackDevices(std::span<const std::byte> bytes);

/// The options of an answer, in the order of their numbers, from 1. Nothing for bytes that are none.
std::optional<ScanOptions> unpackOptions(std::span<const std::byte> bytes);

/// The word of a value, as the scanner service has it; nothing for a text and for no value.
std::optional<std::int32_t> scanWord(const ScanOption& option, const ScanValue& value);
ScanValue scanValueOfWord(ScanOptionType type, std::int32_t word);

} // namespace tarsel
