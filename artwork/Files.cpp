// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/Files.h"

#include "base/SafeFileWriter.h"
#include "imaging/ImageBox.h"

#include <cstdio>
#include <cstdlib>
#include <jpeglib.h>
#include <vector>

namespace tarsel::artwork {

namespace {

constexpr int borderQuality = 94;
constexpr int maskQuality = 100;

/// Errors of libjpeg end the program: pictures in memory have none.
QByteArray encodedJpeg(const Picture& picture, int channels, int quality) {
    jpeg_compress_struct encoder{};
    jpeg_error_mgr errors{};
    encoder.err = jpeg_std_error(&errors);
    jpeg_create_compress(&encoder);
    unsigned char* bytes = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&encoder, &bytes, &size);
    encoder.image_width = JDIMENSION(picture.width());
    encoder.image_height = JDIMENSION(picture.height());
    encoder.input_components = channels;
    encoder.in_color_space = channels == 1 ? JCS_GRAYSCALE : JCS_RGB;
    jpeg_set_defaults(&encoder);
    jpeg_set_quality(&encoder, quality, TRUE);
    encoder.optimize_coding = TRUE;
    encoder.comp_info[0].h_samp_factor = encoder.comp_info[0].v_samp_factor = 1;
    jpeg_start_compress(&encoder, TRUE);
    std::vector<JSAMPLE> row(std::size_t(picture.width()) * std::size_t(channels));
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            for (int c = 0; c < channels; ++c)
                row[std::size_t(x * channels + c)] = picture.view().pixel(x, y)[c];
        JSAMPROW rows = row.data();
        jpeg_write_scanlines(&encoder, &rows, 1);
    }
    jpeg_finish_compress(&encoder);
    jpeg_destroy_compress(&encoder);
    QByteArray result(reinterpret_cast<const char*>(bytes), qsizetype(size));
    std::free(bytes); // NOLINT(cppcoreguidelines-no-malloc): libjpeg allocated it
    return result;
}

} // namespace

void setPixel(PixelView pixels, int x, int y, Tone tone) {
    const float channels[] = {tone.red, tone.green, tone.blue};
    for (int c = 0; c < 3; ++c)
        pixels.pixel(x, y)[c] = std::uint8_t(std::lround(255 * std::clamp(channels[c], 0.0F, 1.0F)));
}

void writeJpeg(const QString& path, const Picture& picture) {
    writeFileSafely(path, encodedJpeg(picture, 3, borderQuality));
}

void writeGrayJpeg(const QString& path, const Picture& picture) {
    writeFileSafely(path, encodedJpeg(picture, 1, maskQuality));
}

void writeGif(const QString& path, const Picture& picture) {
    ImageBox box;
    box.setPictureHandle(picture);
    box.SaveToFile(path);
}

} // namespace tarsel::artwork
