// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <cstdint>
#include <source_location>

namespace tarsel {

/// Which file a decoder is at work on, for its messages.
struct FileUnderTest {
    const char* format; ///< "JPEG"
    QString name;
    qsizetype bytes = 0;
};

/// Error 0x8000FFFF: format, file and fact.
[[noreturn]] void failDecoding(const FileUnderTest& file, const QString& fact,
                               std::source_location where = std::source_location::current());

/// Refuses a size that no picture can have, one beyond largestPicture(), and a large one that the file
/// is too short for: `pixelsPerByte` is the most that the format can pack into a byte of an honest file.
void requirePlausibleSize(const FileUnderTest& file, std::int64_t width, std::int64_t height,
                          std::int64_t pixelsPerByte);

} // namespace tarsel
