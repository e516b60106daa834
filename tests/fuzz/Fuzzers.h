// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <stdexcept>

namespace tarsel::fuzz {

/// Each reads foreign bytes as the program does, and throws std::logic_error where a promise is broken.
void readConfiguration(const QByteArray& bytes);
void readListFiles(const QByteArray& bytes);
/// The first byte says whether an EXIF block or image resource blocks follow.
void readMetadata(const QByteArray& bytes);
void readPicture(const QByteArray& bytes);
void readHeader(const QByteArray& bytes);
void readJoinedFile(const QByteArray& bytes);
void drawMetafile(const QByteArray& bytes);
/// The first byte says how many descriptors come with the answer that follows, and whether it has the serial
/// number of the request.
void readDecoderReply(const QByteArray& bytes);

/// The first byte says whether options, a frame and its lines, or devices follow.
void readScannerAnswer(const QByteArray& bytes);

/// A file with these bytes, under this name in a folder of the process.
QString inputFile(const char* name, const QByteArray& bytes);

inline void require(bool holds, const char* promise) {
    if (!holds)
        throw std::logic_error(promise);
}

} // namespace tarsel::fuzz
