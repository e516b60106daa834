// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "embedded/ExifTagTable.h"

#include <QString>
#include <optional>

namespace tarsel {

/// The raw text of an attribute's value: numbers in decimal, rationals as "10/1250", several of them with
/// blanks between; more than one byte, and undefined data, as two-digit hexadecimal with commas
/// ("30,32,32,30"); texts up to their end mark, read as UTF-8 where they are that, else as Windows-1252.
QString exifText(const ExifBlock& block, const ExifEntry& entry);

/// A value as it goes into a block.
struct ExifValueBytes {
    ExifType type = ExifType::Undefined;
    quint32 count = 0;
    QByteArray bytes;
};

/// The value that a raw text stands for, in the attribute's type; integers, decimals ("2.8") and pairs
/// ("28/10") are taken as rationals. Nothing when the text doesn't convert or a number is out of range.
std::optional<ExifValueBytes> exifValueFromText(const ExifTag& tag, const QString& text, ByteOrder order);

} // namespace tarsel
