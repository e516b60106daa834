// SPDX-License-Identifier: GPL-3.0-or-later
#include "decoder/FreeImageDecoding.h"

#include <FreeImage.h>
#include <cstdio>
#include <cstring>
#include <memory>
#include <sys/mman.h>
#include <unistd.h>

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

DecoderReply replyWith(FIBITMAP* bitmap, Descriptor& pixels) {
    DecoderReply reply;
    reply.width = std::int32_t(FreeImage_GetWidth(bitmap));
    reply.height = std::int32_t(FreeImage_GetHeight(bitmap));
    reply.channels = FreeImage_GetBPP(bitmap) == 32 && !isOpaque(bitmap) ? 4 : 3;
    const std::size_t size =
        std::size_t(reply.width) * std::size_t(reply.height) * std::size_t(reply.channels);
    pixels.reset(::memfd_create("pixels", MFD_CLOEXEC));
    if (!pixels.isOpen() || ::ftruncate(pixels.number(), off_t(size)) != 0)
        return failure("no memory for its pixels");
    void* target = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, pixels.number(), 0);
    if (target == MAP_FAILED)
        return failure("no memory for its pixels");
    copyPixels(bitmap, reply.channels, static_cast<std::uint8_t*>(target));
    ::munmap(target, size);
    return reply;
}

} // namespace

DecoderReply decode(DecoderFormat format, std::span<const std::uint8_t> file, Descriptor& pixels) {
    lastMessage[0] = 0;
    FreeImage_SetOutputMessage(keepMessage);
    const Bitmap loaded = load(format, file);
    if (!loaded)
        return failure(lastMessage[0] ? lastMessage : "damaged");
    const Bitmap bitmap = asTrueColor(loaded.get());
    if (!bitmap)
        return failure("its pixels can't be converted");
    return replyWith(bitmap.get(), pixels);
}

} // namespace tarsel::decoder
