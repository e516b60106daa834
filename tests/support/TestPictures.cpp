// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/TestPictures.h"

#include <algorithm>
#include <cstdlib>
#include <random>

namespace tarsel {

void PrintTo(const Rgb& color, std::ostream* out) {
    *out << '(' << int(color.red) << ", " << int(color.green) << ", " << int(color.blue) << ')';
}

namespace test {

const std::vector<PictureSize>& oddSizes() {
    static const std::vector<PictureSize> sizes = {{1, 1},  {1, 7},   {7, 1},   {2, 2},    {3, 5},   {17, 13},
                                                   {31, 2}, {32, 33}, {97, 31}, {128, 64}, {331, 19}};
    return sizes;
}

Picture pictureOf(int width, int height, int channels, const std::function<Rgb(int x, int y)>& color) {
    Picture picture(width, height, channels);
    const PixelView view = picture.edit();
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const Rgb value = color(x, y);
            const std::uint8_t bytes[4] = {value.red, value.green, value.blue, 255};
            std::copy_n(bytes, channels, view.pixel(x, y));
        }
    return picture;
}

Picture plainPicture(int width, int height, int channels, Rgb color) {
    return pictureOf(width, height, channels, [color](int, int) { return color; });
}

Picture noisePicture(int width, int height, int channels, unsigned seed) {
    std::mt19937 random(seed);
    Picture picture(width, height, channels);
    const PixelView view = picture.edit();
    std::generate_n(view.data, std::size_t(width) * std::size_t(height) * std::size_t(channels),
                    [&random] { return std::uint8_t(random() >> 16); });
    return picture;
}

Picture redBesideHiddenGreen(int side, int edge) {
    Picture picture = plainPicture(side, side, 4, {255, 0, 0});
    const std::uint8_t hiddenGreen[4] = {0, 255, 0, 0};
    for (int i = 0; i < side * edge; ++i)
        std::copy_n(hiddenGreen, 4, picture.edit().pixel(i % edge, i / edge));
    return picture;
}

Picture picked(const Picture& source, int width, int height, const std::function<Place(int x, int y)>& from,
               Rgb outside) {
    Picture picture = plainPicture(width, height, source.channels(), outside);
    const PixelView view = picture.edit();
    for (int i = 0; i < width * height; ++i) {
        const auto [x, y] = from(i % width, i / width);
        if (x >= 0 && y >= 0 && x < source.width() && y < source.height())
            std::copy_n(source.view().pixel(x, y), source.channels(), view.pixel(i % width, i / width));
    }
    return picture;
}

Rgb colorAt(const Picture& picture, int x, int y) {
    const std::uint8_t* pixel = picture.view().pixel(x, y);
    return {pixel[0], pixel[1], pixel[2]};
}

int alphaAt(const Picture& picture, int x, int y) {
    return picture.hasAlpha() ? picture.view().pixel(x, y)[3] : 255;
}

double meanOf(const Picture& picture, int channel) {
    double sum = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            sum += picture.view().pixel(x, y)[channel];
    return sum / picture.width() / picture.height();
}

int largestDifference(const Picture& one, const Picture& other) {
    if (one.width() != other.width() || one.height() != other.height() || one.channels() != other.channels())
        return 256;
    const auto size = std::size_t(one.width()) * std::size_t(one.height()) * std::size_t(one.channels());
    int largest = 0;
    for (std::size_t i = 0; i < size; ++i)
        largest = std::max(largest, std::abs(one.view().data[i] - other.view().data[i]));
    return largest;
}

} // namespace test
} // namespace tarsel
