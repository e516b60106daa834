// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <stdexcept>

namespace tarsel::fuzz {

/// Each reads foreign bytes as the program does, and throws std::logic_error where a promise is broken.
void readConfiguration(const QByteArray& bytes);
void readListFiles(const QByteArray& bytes);
/// The first byte says whether an EXIF block or image resource blocks follow.
void readMetadata(const QByteArray& bytes);
void readPicture(const QByteArray& bytes);

inline void require(bool holds, const char* promise) {
    if (!holds)
        throw std::logic_error(promise);
}

} // namespace tarsel::fuzz
