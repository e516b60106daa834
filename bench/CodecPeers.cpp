// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/CodecPeers.h"

#ifdef TARSEL_FREEIMAGE
#include <FreeImage.h>
#endif
#ifdef TARSEL_VIPS
#include <vips/vips.h>
#endif

namespace tarsel::bench {

namespace {

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

} // namespace tarsel::bench
