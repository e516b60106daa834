// SPDX-License-Identifier: MIT
#include "players/platform/Jpeg.h"

#include <algorithm>
#include <memory>
#include <windows.h>

#include <objidl.h>

#include <gdiplus.h>
#include <shlwapi.h>

namespace tarsel::players {

namespace {

constexpr std::uint64_t mostPixels = 1ull << 27; ///< decoded all at once

void start() {
    static const bool isStarted = [] {
        ULONG_PTR token = 0;
        const Gdiplus::GdiplusStartupInput input;
        return Gdiplus::GdiplusStartup(&token, &input, nullptr) == Gdiplus::Ok;
    }();
    (void)isStarted;
}

struct Release {
    void operator()(IUnknown* object) const { object->Release(); }
};

} // namespace

std::optional<Picture> decodeJpeg(std::string_view bytes, int widest, int highest) {
    if (!bytes.starts_with("\xFF\xD8"))
        return std::nullopt;
    start();
    const std::unique_ptr<IStream, Release> stream(
        SHCreateMemStream(reinterpret_cast<const BYTE*>(bytes.data()), UINT(bytes.size())));
    if (!stream)
        return std::nullopt;
    Gdiplus::Bitmap bitmap(stream.get());
    const std::uint64_t pixels = std::uint64_t(bitmap.GetWidth()) * bitmap.GetHeight();
    if (bitmap.GetLastStatus() != Gdiplus::Ok || pixels == 0 || pixels > mostPixels)
        return std::nullopt;
    Picture picture{{}, std::min(int(bitmap.GetWidth()), widest), std::min(int(bitmap.GetHeight()), highest)};
    const Gdiplus::Rect part(0, 0, picture.width, picture.height);
    Gdiplus::BitmapData data;
    if (bitmap.LockBits(&part, Gdiplus::ImageLockModeRead, PixelFormat32bppRGB, &data) != Gdiplus::Ok)
        return std::nullopt;
    for (int y = 0; y < picture.height; ++y) {
        const auto* const row = reinterpret_cast<const std::uint32_t*>(static_cast<const BYTE*>(data.Scan0) +
                                                                       std::ptrdiff_t(y) * data.Stride);
        std::transform(row, row + picture.width, std::back_inserter(picture.pixels),
                       [](std::uint32_t pixel) { return pixel | black; });
    }
    bitmap.UnlockBits(&data);
    return picture;
}

} // namespace tarsel::players
