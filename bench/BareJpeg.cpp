// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/BareJpeg.h"

#include "pixels/operations/AreaReduction.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <jpeglib.h>

namespace tarsel::bench {

namespace {

/// The picture in a file, where `minSide` is the longer side that is needed at least; 0 for all pixels.
Picture decodeBare(const QByteArray& file, unsigned minSide) {
    jpeg_decompress_struct decoder;
    jpeg_error_mgr errors;
    decoder.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&decoder);
    jpeg_mem_src(&decoder, reinterpret_cast<const unsigned char*>(file.data()), std::size_t(file.size()));
    jpeg_read_header(&decoder, TRUE);
    decoder.out_color_space = JCS_RGB;
    if (minSide) {
        const unsigned side = std::max(decoder.image_width, decoder.image_height);
        decoder.scale_denom = 8;
        decoder.scale_num = std::clamp((minSide * 8 + side - 1) / side, 1U, 8U);
        decoder.dct_method = JDCT_IFAST;
        decoder.do_fancy_upsampling = FALSE;
    }
    jpeg_start_decompress(&decoder);
    Picture picture(int(decoder.output_width), int(decoder.output_height), 3);
    const PixelView view = picture.edit();
    while (decoder.output_scanline < decoder.output_height) {
        JSAMPROW row = view.row(int(decoder.output_scanline));
        jpeg_read_scanlines(&decoder, &row, 1);
    }
    jpeg_destroy_decompress(&decoder);
    return picture;
}

} // namespace

Picture loadBareJpeg(const QByteArray& file) {
    return decodeBare(file, 0);
}

QByteArray saveBareJpeg(const Picture& picture, int quality) {
    jpeg_compress_struct encoder;
    jpeg_error_mgr errors;
    encoder.err = jpeg_std_error(&errors);
    jpeg_create_compress(&encoder);
    unsigned char* bytes = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&encoder, &bytes, &size);
    encoder.image_width = JDIMENSION(picture.width());
    encoder.image_height = JDIMENSION(picture.height());
    encoder.input_components = 3;
    encoder.in_color_space = JCS_RGB;
    jpeg_set_defaults(&encoder);
    jpeg_set_quality(&encoder, quality, TRUE);
    jpeg_start_compress(&encoder, TRUE);
    const ConstPixelView view = picture.view();
    while (encoder.next_scanline < encoder.image_height) {
        auto* row = const_cast<JSAMPROW>(view.row(int(encoder.next_scanline))); // only read
        jpeg_write_scanlines(&encoder, &row, 1);
    }
    jpeg_finish_compress(&encoder);
    jpeg_destroy_compress(&encoder);
    const QByteArray file(reinterpret_cast<const char*>(bytes), qsizetype(size));
    std::free(bytes);
    return file;
}

void makeBareThumbnail(const QByteArray& file, int side) {
    const Picture decoded = decodeBare(file, unsigned(side));
    const int factor = std::max(1, std::max(decoded.width(), decoded.height()) / side);
    Picture thumbnail(decoded.width() / factor, decoded.height() / factor, 3);
    operations::areaReduction(decoded.view(), thumbnail.edit(), factor, factor);
}

} // namespace tarsel::bench
