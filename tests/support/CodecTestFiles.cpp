// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/CodecTestFiles.h"

#include "base/SafeFileWriter.h"
#include "base/TrappedError.h"
#include "codecs/PictureFile.h"
#include "codecs/TiffDirectory.h"
#include "embedded/ResourceBlocks.h"
#include "tests/support/TestPictures.h"

#include <cmath>
#include <lcms2.h>

namespace tarsel::test {

QByteArray profileBytes(void* profile) {
    cmsUInt32Number size = 0;
    cmsSaveProfileToMem(profile, nullptr, &size);
    QByteArray bytes(qsizetype(size), 0);
    cmsSaveProfileToMem(profile, bytes.data(), &size);
    cmsCloseProfile(profile);
    return bytes;
}

namespace {

/// A description of the image and, one directory deeper, a date.
QByteArray exifBlock() {
    TiffDirectory photo;
    photo.put({0x9003, 2, 20, QByteArray("2004:03:07 15:05:09\0", 20), {}});
    TiffDirectory image;
    image.put({0x010E, 2, 13, QByteArray("At the river\0", 13), {}});
    image.put({0x8769, 4, 1, QByteArray(4, 0), {photo}});
    return writeTiffStart(false, 8) + writeTiffDirectory(image, false, 8);
}

} // namespace

ReadOutcome readBytes(const QByteArray& bytes, const QString& name, int page) {
    ReadOutcome outcome;
    try {
        outcome.decoded = PictureFile(bytes, name).decode(page);
    } catch (const TrappedError& error) {
        outcome.errorNumber = error.number;
        outcome.message = error.description;
    }
    return outcome;
}

Picture photograph(int width, int height, int channels) {
    return pictureOf(width, height, channels, [](int x, int y) {
        const auto wave = [](double at) { return std::uint8_t(127.5 + 120 * std::sin(at)); };
        const auto grain = std::uint8_t((x * 7 + y * 13) % 5);
        return Rgb{std::uint8_t(wave(x * 0.05) - grain), wave(y * 0.07),
                   std::uint8_t(wave((x + y) * 0.03) + grain)};
    });
}

EmbeddedMetadata everyKindOfMetadata() {
    EmbeddedMetadata metadata;
    metadata.exif = exifBlock();
    metadata.resources =
        ResourceBlocks::block(ResourceBlocks::iptcNumber, QByteArray("\x1C\x02\x69\x00\x05River", 10)) +
        ResourceBlocks::block(0x1234, QByteArray("kept"));
    metadata.xmp = "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\"></x:xmpmeta>";
    metadata.iccProfile = profileBytes(cmsCreate_sRGBProfile());
    metadata.comments = {"At the river", QByteArray("caf\xE9\0", 5)};
    metadata.cameraSegments = {{0xE6, QByteArray("GoPro\0DEVC", 10)}, {0xEC, "[picture info]\nShutter=60"}};
    return metadata;
}

QByteArray bytesOf(const QString& path) {
    return readWholeFile(path);
}

} // namespace tarsel::test
