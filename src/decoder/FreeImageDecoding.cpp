// SPDX-License-Identifier: GPL-3.0-or-later
#include "decoder/FreeImageDecoding.h"

#include <FreeImage.h>
#include <cstdio>
#include <cstring>
#include <memory>

namespace tarsel::decoder {

namespace {

struct BitmapUnloader {
    void operator()(FIBITMAP* bitmap) const { FreeImage_Unload(bitmap); }
};
using Bitmap = std::unique_ptr<FIBITMAP, BitmapUnloader>;

struct MemoryCloser {
    void operator()(FIMEMORY* memory) const { FreeImage_CloseMemory(memory); }
};

char lastMessage[sizeof(DecoderReply::message)];

void keepMessage(FREE_IMAGE_FORMAT, const char* message) {
    std::snprintf(lastMessage, sizeof lastMessage, "%s", message);
}

struct Reader {
    FREE_IMAGE_FORMAT format;
    int flags;
};

Reader readerFor(DecoderFormat format) {
    switch (format) {
    case DecoderFormat::Gif:
        return {FIF_GIF, GIF_PLAYBACK}; // the frame on its canvas
    case DecoderFormat::Wbmp:
        return {FIF_WBMP, 0};
    }
    return {FIF_UNKNOWN, 0};
}

Bitmap load(DecoderFormat format, std::span<const std::uint8_t> file) {
    const Reader reader = readerFor(format);
    const std::unique_ptr<FIMEMORY, MemoryCloser> memory(
        FreeImage_OpenMemory(const_cast<BYTE*>(file.data()), DWORD(file.size())));
    return Bitmap(FreeImage_LoadFromMemory(reader.format, memory.get(), reader.flags));
}

/// As 24 or 32 bits.
Bitmap asTrueColor(FIBITMAP* source) {
    return Bitmap(FreeImage_IsTransparent(source) ? FreeImage_ConvertTo32Bits(source)
                                                  : FreeImage_ConvertTo24Bits(source));
}

bool isOpaque(FIBITMAP* bitmap) {
    const unsigned width = FreeImage_GetWidth(bitmap);
    for (unsigned y = 0; y < FreeImage_GetHeight(bitmap); ++y) {
        const BYTE* pixel = FreeImage_GetScanLine(bitmap, int(y));
        for (unsigned x = 0; x < width; ++x, pixel += 4)
            if (pixel[FI_RGBA_ALPHA] != 255)
                return false;
    }
    return true;
}

/// Rows from the top, red first.
void copyPixels(FIBITMAP* bitmap, int channels, std::uint8_t* target) {
    const int width = int(FreeImage_GetWidth(bitmap));
    const int height = int(FreeImage_GetHeight(bitmap));
    const int stored = int(FreeImage_GetBPP(bitmap)) / 8;
    for (int y = 0; y < height; ++y) {
        const BYTE* pixel = FreeImage_GetScanLine(bitmap, height - 1 - y);
        for (int x = 0; x < width; ++x, pixel += stored) {
            *target++ = pixel[FI_RGBA_RED];
            *target++ = pixel[FI_RGBA_GREEN];
            *target++ = pixel[FI_RGBA_BLUE];
            if (channels == 4)
                *target++ = pixel[FI_RGBA_ALPHA];
        }
    }
}

DecoderReply failure(const char* message) {
    DecoderReply reply;
    std::snprintf(reply.message, sizeof reply.message, "%s", message);
    return reply;
}

void decodeOnePixel(DecoderFormat format, std::span<const std::uint8_t> file) {
    std::uint8_t pixel[4];
    decode({format, 0, file.size(), 1, 1}, file, pixel);
}

} // namespace

DecoderReply decode(const DecoderRequest& request, std::span<const std::uint8_t> file, std::uint8_t* pixels) {
    lastMessage[0] = 0;
    FreeImage_SetOutputMessage(keepMessage);
    const Bitmap loaded = load(request.format, file);
    if (!loaded)
        return failure(lastMessage[0] ? lastMessage : "damaged");
    const Bitmap bitmap = asTrueColor(loaded.get());
    if (!bitmap)
        return failure("its pixels can't be converted");
    if (FreeImage_GetWidth(bitmap.get()) != unsigned(request.width) ||
        FreeImage_GetHeight(bitmap.get()) != unsigned(request.height))
        return failure("its picture has another size than its header says");
    DecoderReply reply;
    reply.channels = FreeImage_GetBPP(bitmap.get()) == 32 && !isOpaque(bitmap.get()) ? 4 : 3;
    copyPixels(bitmap.get(), reply.channels, pixels);
    return reply;
}

void prepareLibraries() {
    constexpr std::uint8_t gif[] = {'G', 'I', 'F', '8', '9', 'a', 1,   0,    1, 0, 0x80, 0,
                                    0,   0,   0,   0,   255, 255, 255, ',',  0, 0, 0,    0,
                                    1,   0,   1,   0,   0,   2,   2,   0x44, 1, 0, ';'};
    constexpr std::uint8_t wbmp[] = {0, 0, 1, 1, 0x80};
    decodeOnePixel(DecoderFormat::Gif, gif);
    decodeOnePixel(DecoderFormat::Wbmp, wbmp);
}

} // namespace tarsel::decoder
