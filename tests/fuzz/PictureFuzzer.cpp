// SPDX-License-Identifier: GPL-3.0-or-later
// The readers of picture files, those in the decoder's process included.

#include "base/ErrorTrap.h"
#include "base/TrappedError.h"
#include "codecs/PictureFile.h"
#include "codecs/PngTexts.h"
#include "tests/fuzz/Fuzzers.h"

#include <cstdint>

using namespace tarsel;
using fuzz::require;

void fuzz::readPicture(const QByteArray& bytes) {
    // Extensions without which a format doesn't take part.
    const bool isMetafile = PictureFile(bytes, QStringLiteral("fuzzed.wmf")).isRecognised();
    const QString name = isMetafile ? QStringLiteral("fuzzed.wmf") : QStringLiteral("fuzzed.wbmp");
    PictureHeader header;
    ignoringErrors([&] {
        const PictureFile file(bytes, name);
        header = file.header();
        file.metadata();
    });
    ignoringErrors([&] { pngTexts(bytes, name); });
    if (std::int64_t(header.width) * header.height >= 1'000'000) // speed is not the question
        return;
    try {
        require(!PictureFile(bytes, name).decode(1).picture.isNull(), "what is read has pixels");
    } catch (const TrappedError& error) {
        require(error.number == ErrorNumber::UnreadableFile, "what can't be read is refused as a file");
        require(error.description.contains(name), "the message names the file");
    }
}
