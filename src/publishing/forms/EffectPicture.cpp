// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/forms/EffectPicture.h"

#include <algorithm>
#include <cmath>

namespace tarsel {

namespace {

constexpr int samples = 3; ///< on either side of the place that becomes one pixel

struct Sum {
    int red = 0, green = 0, blue = 0;

    void add(const std::uint8_t* pixel, int channels) {
        const int alpha = channels == 4 ? pixel[3] : 255;
        const auto onWhite = [alpha](int value) { return (value * alpha + 255 * (255 - alpha)) / 255; };
        red += onWhite(pixel[0]);
        green += onWhite(pixel[1]);
        blue += onWhite(pixel[2]);
    }
    std::uint32_t average() const {
        constexpr int count = samples * samples;
        return players::black | std::uint32_t(red / count) << 16 | std::uint32_t(green / count) << 8 |
               std::uint32_t(blue / count);
    }
};

/// Of pixel `i` of `count`, in a row or column of `source` pixels.
int sourceOf(int i, int sample, int count, int source) {
    const std::int64_t place = (2 * (std::int64_t(i) * samples + sample) + 1) * source;
    return int(place / (2LL * count * samples));
}

std::uint32_t pixelOf(const ConstPixelView& view, const players::Picture& reduced, int x, int y) {
    Sum sum;
    for (int down = 0; down < samples; ++down)
        for (int across = 0; across < samples; ++across)
            sum.add(view.pixel(sourceOf(x, across, reduced.width, view.width),
                               sourceOf(y, down, reduced.height, view.height)),
                    view.channels);
    return sum.average();
}

} // namespace

players::Picture effectPicture(const Picture& picture, int mostWidth, int mostHeight) {
    players::Picture reduced;
    if (picture.isNull())
        return reduced;
    const double scale =
        std::min({1.0, double(mostWidth) / picture.width(), double(mostHeight) / picture.height()});
    reduced.width = std::max(1, int(std::lround(picture.width() * scale)));
    reduced.height = std::max(1, int(std::lround(picture.height() * scale)));
    reduced.pixels.resize(std::size_t(reduced.width) * std::size_t(reduced.height));
    const ConstPixelView view = picture.view();
    auto next = reduced.pixels.begin();
    for (int y = 0; y < reduced.height; ++y)
        for (int x = 0; x < reduced.width; ++x)
            *next++ = pixelOf(view, reduced, x, y);
    return reduced;
}

} // namespace tarsel
