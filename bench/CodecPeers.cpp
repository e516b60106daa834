// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/CodecPeers.h"

#include "pixels/operations/AreaReduction.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <jpeglib.h>
#ifdef TARSEL_FREEIMAGE
#include <FreeImage.h>
#endif
#ifdef TARSEL_VIPS
#include <vips/vips.h>
#endif

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

#ifdef TARSEL_FREEIMAGE
bool loadByFreeImage(const QByteArray& file) {
    auto* const bytes = reinterpret_cast<BYTE*>(const_cast<char*>(file.data())); // only read
    FIMEMORY* const memory = FreeImage_OpenMemory(bytes, DWORD(file.size()));
    FIBITMAP* const bitmap = FreeImage_LoadFromMemory(FreeImage_GetFileTypeFromMemory(memory), memory);
    FreeImage_CloseMemory(memory);
    FreeImage_Unload(bitmap);
    return bitmap;
}

bool saveByFreeImage(const Picture& picture, const std::string& extension) {
    const auto format = FreeImage_GetFIFFromFilename(("a." + extension).c_str());
    const ConstPixelView view = picture.view();
    FIBITMAP* bitmap = FreeImage_ConvertFromRawBits(const_cast<BYTE*>(view.data), view.width, view.height,
                                                    int(view.stride), 24, 0xFF0000, 0xFF00, 0xFF, TRUE);
    if (extension == "gif") {
        FIBITMAP* const colors = FreeImage_ColorQuantize(bitmap, FIQ_WUQUANT);
        FreeImage_Unload(bitmap);
        bitmap = colors;
    }
    FIMEMORY* const memory = FreeImage_OpenMemory();
    const bool saved = FreeImage_SaveToMemory(format, bitmap, memory);
    FreeImage_CloseMemory(memory);
    FreeImage_Unload(bitmap);
    return saved;
}
#endif

#ifdef TARSEL_VIPS
bool loadByVips(const QByteArray& file) {
    VipsImage* const image = vips_image_new_from_buffer(file.data(), std::size_t(file.size()), "", nullptr);
    std::size_t size = 0;
    void* const pixels = image ? vips_image_write_to_memory(image, &size) : nullptr;
    if (image)
        g_object_unref(image);
    g_free(pixels);
    return pixels;
}

bool saveByVips(const Picture& picture, const std::string& extension) {
    const ConstPixelView view = picture.view();
    VipsImage* const image =
        vips_image_new_from_memory(view.data, std::size_t(view.stride) * std::size_t(view.height), view.width,
                                   view.height, 3, VIPS_FORMAT_UCHAR);
    void* bytes = nullptr;
    std::size_t size = 0;
    const bool saved =
        vips_image_write_to_buffer(image, ("." + extension).c_str(), &bytes, &size, nullptr) == 0;
    g_object_unref(image);
    g_free(bytes);
    return saved;
}
#endif

} // namespace

std::vector<CodecPeer> codecPeers() {
    std::vector<CodecPeer> peers;
#ifdef TARSEL_FREEIMAGE
    peers.push_back({"FreeImage", loadByFreeImage, saveByFreeImage});
#endif
#ifdef TARSEL_VIPS
    if (vips_init("codecs_bench") == 0) {
        vips_concurrency_set(1);
        vips_cache_set_max(0);
        peers.push_back({"libvips", loadByVips, saveByVips});
    }
#endif
    return peers;
}

void loadBareJpeg(const QByteArray& file) {
    decodeBare(file, 0);
}

void saveBareJpeg(const Picture& picture, int quality) {
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
    std::free(bytes);
}

void makeBareThumbnail(const QByteArray& file, int side) {
    const Picture decoded = decodeBare(file, unsigned(side));
    const int factor = std::max(1, std::max(decoded.width(), decoded.height()) / side);
    Picture thumbnail(decoded.width() / factor, decoded.height() / factor, 3);
    operations::areaReduction(decoded.view(), thumbnail.edit(), factor, factor);
}

} // namespace tarsel::bench
