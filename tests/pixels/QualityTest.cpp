// SPDX-License-Identifier: GPL-3.0-or-later
// What the operations that mix pixels make, against slow double-precision references straight from their
// definitions, on noise, which is the hardest picture. Pictures with alpha are compared as they look over
// black and over white: hidden colours that shine through, or rims round transparent parts, count as errors.

#include "pixels/operations/EllipseMask.h"
#include "pixels/operations/GaussianBlur.h"
#include "pixels/operations/Merge.h"
#include "pixels/operations/ResizeSmooth.h"
#include "pixels/operations/Rotate.h"
#include "pixels/operations/Sharpen.h"
#include "tests/support/TestPictures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

using namespace tarsel;
using namespace tarsel::operations;
using namespace tarsel::test;

namespace {

constexpr double minPsnr = 50; // decibels

/// Colours times alpha / 255, and alpha.
using Pixel = std::array<double, 4>;

Pixel operator+(const Pixel& a, const Pixel& b) {
    return {a[0] + b[0], a[1] + b[1], a[2] + b[2], a[3] + b[3]};
}

Pixel operator*(const Pixel& a, double factor) {
    return {a[0] * factor, a[1] * factor, a[2] * factor, a[3] * factor};
}

Pixel opaquePixel(Rgb color) {
    return {double(color.red), double(color.green), double(color.blue), 255};
}

/// A picture in double precision.
struct Exact {
    int width;
    int height;
    std::vector<Pixel> pixels;

    Exact(int w, int h, const std::function<Pixel(int x, int y)>& pixelOf) : width(w), height(h) {
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x)
                pixels.push_back(pixelOf(x, y));
    }
    explicit Exact(const Picture& picture) :
        Exact(picture.width(), picture.height(), [&](int x, int y) {
            const double alpha = alphaAt(picture, x, y);
            Pixel pixel = opaquePixel(colorAt(picture, x, y)) * (alpha / 255);
            pixel[3] = alpha;
            return pixel;
        }) {}

    /// Beyond the edges the outermost pixels repeat.
    Pixel at(int x, int y) const {
        return pixels[std::size_t(std::clamp(y, 0, height - 1)) * std::size_t(width) +
                      std::size_t(std::clamp(x, 0, width - 1))];
    }
    bool contains(int x, int y) const { return x >= 0 && y >= 0 && x < width && y < height; }
};

/// Peak signal to noise ratio of what is seen over black and over white. Of what is expected, alpha ends at 0
/// and 255, and colours end at alpha.
double psnr(const Picture& result, const Exact& expected) {
    const Exact actual(result);
    if (actual.width != expected.width || actual.height != expected.height)
        return 0;
    double squares = 0;
    for (std::size_t i = 0; i < actual.pixels.size(); ++i)
        for (std::size_t c = 0; c < 3; ++c) {
            const double alpha = std::clamp(expected.pixels[i][3], 0.0, 255.0);
            const double black = actual.pixels[i][c] - std::clamp(expected.pixels[i][c], 0.0, alpha);
            const double white = black - (actual.pixels[i][3] - alpha);
            squares += (black * black + white * white) / 2;
        }
    return 10 * std::log10(255 * 255 * double(actual.pixels.size()) * 3 / std::max(squares, 1e-9));
}

using Kernel = std::function<double(double)>;

/// Along x; used twice with the axes swapped.
Exact filteredAcross(const Exact& source, int newWidth, const Kernel& kernel, double radius) {
    const double step = double(source.width) / newWidth;
    return {source.height, newWidth, [&](int y, int x) {
                const double centre = (x + 0.5) * step - 0.5;
                Pixel sum{};
                double weights = 0;
                for (int k = int(std::ceil(centre - radius)); k <= centre + radius; ++k) {
                    sum = sum + source.at(k, y) * kernel(k - centre);
                    weights += kernel(k - centre);
                }
                return sum * (1 / weights);
            }};
}

Exact exactResize(const Exact& source, int width, int height) {
    const auto across = [](const Exact& from, int newWidth) {
        const double widening = std::max(1.0, double(from.width) / newWidth);
        const Kernel lanczos = [widening](double distance) {
            const double t = distance / widening;
            const double a = std::numbers::pi * t;
            return t == 0 ? 1.0 : std::abs(t) >= 3 ? 0.0 : 3 * std::sin(a) * std::sin(a / 3) / (a * a);
        };
        return filteredAcross(from, newWidth, lanczos, 3 * widening);
    };
    return across(across(source, width), height);
}

Exact exactBlur(const Exact& source, int level) {
    const double deviation = level / 2.0;
    const Kernel bell = [=](double d) { return std::exp(-d * d / (2 * deviation * deviation)); };
    const double radius = std::ceil(3 * deviation);
    return filteredAcross(filteredAcross(source, source.width, bell, radius), source.height, bell, radius);
}

Exact exactSharpen(const Exact& source, int level) {
    return {source.width, source.height, [&](int x, int y) {
                const Pixel own = source.at(x, y);
                Pixel mean{};
                for (int j = -1; j <= 1; ++j)
                    for (int i = -1; i <= 1; ++i)
                        mean =
                            mean + source.at(x + i, y + j) * ((2 - std::abs(i)) * (2 - std::abs(j)) / 16.0);
                Pixel result = own;
                for (std::size_t c = 0; c < 3 && own[3] > 0; ++c) {
                    const double detail = own[c] / own[3] - mean[c] / mean[3];
                    result[c] = own[c] + 0.3 * level * detail * own[3];
                }
                return result;
            }};
}

Exact exactRotation(const Exact& source, double degrees, int width, int height, Rgb background) {
    const double sine = std::sin(degrees * std::numbers::pi / 180);
    const double cosine = std::cos(degrees * std::numbers::pi / 180);
    return {width, height, [&](int x, int y) {
                const double fromX = x + 0.5 - width / 2.0;
                const double fromY = y + 0.5 - height / 2.0;
                const double atX = fromX * cosine + fromY * sine + source.width / 2.0 - 0.5;
                const double atY = fromY * cosine - fromX * sine + source.height / 2.0 - 0.5;
                Pixel sum{};
                for (int j = 0; j < 2; ++j)
                    for (int i = 0; i < 2; ++i) {
                        const int px = int(std::floor(atX)) + i;
                        const int py = int(std::floor(atY)) + j;
                        const Pixel pixel =
                            source.contains(px, py) ? source.at(px, py) : opaquePixel(background);
                        sum = sum + pixel * ((1 - std::abs(atX - px)) * (1 - std::abs(atY - py)));
                    }
                return sum;
            }};
}

Exact exactMerge(const Exact& below, const Exact& layer, double opacity) {
    return {below.width, below.height, [&](int x, int y) {
                const Pixel above = layer.at(x, y) * opacity;
                return above + below.at(x, y) * (1 - above[3] / 255);
            }};
}

template <class Operation>
Picture changed(const Picture& source, const Operation& operation) {
    Picture result(source.width(), source.height(), source.channels());
    operation(source.view(), result.edit());
    return result;
}

} // namespace

TEST(Quality, OfEveryOperationThatMixesPixelsIsFiftyDecibels) {
    constexpr Rgb background{30, 200, 90};
    std::vector<PictureSize> sizes = oddSizes();
    sizes.push_back({131, 97});
    for (const auto& [width, height] : sizes)
        for (const int channels : {3, 4}) {
            SCOPED_TRACE(testing::Message() << width << " x " << height << ", " << 8 * channels << " bits");
            const Picture picture = noisePicture(width, height, channels);
            const Exact source(picture);
            // Of a handful of pixels, one that rounds the other way weighs more.
            const double minOfBlur = width * height < 1000 ? 47 : minPsnr;
            for (int level = 1; level <= 10; ++level) {
                const Picture blurred = changed(picture, [&](auto s, auto t) { gaussianBlur(s, t, level); });
                EXPECT_GE(psnr(blurred, exactBlur(source, level)), minOfBlur) << "blur " << level;
                const Picture sharper = changed(picture, [&](auto s, auto t) { sharpen(s, t, level); });
                EXPECT_GE(psnr(sharper, exactSharpen(source, level)), minPsnr) << "sharpen " << level;
            }
            for (const double degrees : {0.3, 7.0, 45.0, 89.5, 100.0, 181.0, 301.5, -30.0}) {
                const Picture turned = rotate(picture, degrees, true, background);
                const Exact exact =
                    exactRotation(source, degrees, turned.width(), turned.height(), background);
                EXPECT_GE(psnr(turned, exact), minPsnr) << "rotate " << degrees;
            }
            for (const int layerChannels : {3, 4})
                for (const double transparency : {0.0, 1.0, 50.0, 80.5, 99.0}) {
                    const Picture layer = noisePicture(width, height, layerChannels, 2);
                    Picture merged = picture;
                    merge(merged.edit(), layer.view(), {MergePlace::At, 0, 0, {}, transparency});
                    EXPECT_GE(psnr(merged, exactMerge(source, Exact(layer), 1 - transparency / 100)), minPsnr)
                        << "merge " << 8 * layerChannels << " bits at " << transparency << " %";
                }
        }
}

TEST(Quality, OfResizingIsFiftyDecibelsUpAndDown) {
    for (const int channels : {3, 4}) {
        Picture picture = noisePicture(264, 192, channels);
        fillOutsideEllipse(picture.edit(), {40, 90, 250}); // strong reductions repeat means beyond the edges
        for (const auto& [w, h] : {PictureSize{132, 96},
                                   {88, 48},
                                   {131, 97},
                                   {263, 191},
                                   {300, 205},
                                   {40, 22},
                                   {20, 13},
                                   {16, 9}}) {
            Picture result(w, h, channels);
            resizeSmooth(picture.view(), result.edit());
            EXPECT_GE(psnr(result, exactResize(Exact(picture), w, h)), minPsnr) << w << " x " << h;
        }
    }
}

TEST(Quality, LinesFinerThanTheResultBecomeGray) {
    const Picture lines = picked(plainPicture(1, 1, 3, {255, 255, 255}), 264, 192,
                                 [](int x, int) {
                                     return Place{x % 3 == 0 ? 0 : -1, 0};
                                 },
                                 {0, 0, 0});
    for (const int width : {132, 131, 88, 66}) {
        Picture result(width, 96, 3);
        resizeSmooth(lines.view(), result.edit());
        const std::uint8_t* row = result.view().row(48);
        const auto [darkest, brightest] = std::minmax_element(row + 15, row + 3 * width - 15);
        EXPECT_LE(*brightest - *darkest, 20) << width;
    }
}

TEST(Quality, PlainPicturesStayPlainUpToTheirEdges) {
    for (const int value : {0, 1, 128, 254, 255}) {
        const Rgb color{std::uint8_t(value), 77, 255};
        const Picture plain = plainPicture(67, 41, 4, color);
        for (const auto& [width, height] : oddSizes()) {
            Picture result(width, height, 4);
            resizeSmooth(plain.view(), result.edit());
            EXPECT_TRUE(result == plainPicture(width, height, 4, color))
                << value << ": " << width << " x " << height;
        }
        for (int level = 1; level <= 10; ++level) {
            EXPECT_TRUE(plain == changed(plain, [&](auto s, auto t) { sharpen(s, t, level); })) << level;
            EXPECT_TRUE(plain == changed(plain, [&](auto s, auto t) { gaussianBlur(s, t, level); })) << level;
        }
    }
}

TEST(Quality, ABlurKeepsTheMean) {
    const Picture noise = noisePicture(200, 150, 3);
    const Picture framed = picked(noise, 264, 214,
                                  [](int x, int y) {
                                      return Place{x - 32, y - 32};
                                  },
                                  {60, 120, 200});
    for (int level = 1; level <= 10; ++level) {
        const Picture blurred = changed(framed, [&](auto s, auto t) { gaussianBlur(s, t, level); });
        for (int c = 0; c < 3; ++c)
            EXPECT_NEAR(meanOf(blurred, c), meanOf(framed, c), 0.05) << level;
    }
}
