// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/Codec.h"
#include "codecs/Formats.h"
#include "tests/support/Corpus.h"

#include <QByteArray>
#include <QString>
#include <optional>

namespace tarsel::test {

/// How the reading of some bytes ended: with a picture, or with an error of the system.
struct ReadOutcome {
    std::optional<DecodedPicture> decoded;
    qint32 errorNumber = 0;
    QString message;
};

/// Reads a page by content. Anything but a picture or a TrappedError goes on to the test and fails it.
ReadOutcome readBytes(const QByteArray& bytes, const QString& name, int page = 1);

/// The file of a picture, by the codec of an extension.
inline QByteArray encoded(const char* extension, const Picture& picture, const SaveSettings& settings = {},
                          const EmbeddedMetadata& metadata = {}) {
    return encodePicture(QString::fromLatin1(extension), picture, settings, metadata);
}

/// A picture with the look of a photograph: soft changes and a little noise.
Picture photograph(int width, int height, int channels = 3);

/// The bytes of a profile of lcms2, which is closed. They hold the second in which it was made.
QByteArray profileBytes(void* profile);

/// Metadata of every kind. `resources` hold IPTC data and a block of an unknown number.
EmbeddedMetadata everyKindOfMetadata();

QByteArray bytesOf(const QString& path);

} // namespace tarsel::test
