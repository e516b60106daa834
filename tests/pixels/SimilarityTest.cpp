// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/Similarity.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/TestPictures.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::operations;
using namespace tarsel::test;

namespace {

Similarity between(const Picture& a, const Picture& b) {
    return similarity(a.view(), b.view());
}

TEST(Similarity, OfPicturesWhoseMeasureIsKnown) {
    const Picture noise = noisePicture(33, 21, 3);
    EXPECT_TRUE(std::isinf(between(noise, noise).peakSignalToNoise));
    EXPECT_DOUBLE_EQ(between(noise, noise).structural, 1);
    const Similarity flat =
        between(plainPicture(20, 12, 3, {100, 100, 100}), plainPicture(20, 12, 3, {110, 110, 110}));
    EXPECT_NEAR(flat.peakSignalToNoise, 20 * std::log10(25.5), 1e-9);
    EXPECT_NEAR(flat.structural, (2 * 100 * 110 + 6.5025) / (100 * 100 + 110 * 110 + 6.5025), 1e-9);
    const auto stripes = [](int first) {
        return pictureOf(16, 16, 3, [first](int x, int) {
            const auto value = std::uint8_t(x % 2 == first ? 100 : 150);
            return Rgb{value, value, value};
        });
    };
    // Means 125, variances 625, covariance -625.
    EXPECT_NEAR(between(stripes(0), stripes(1)).structural, (58.5225 - 1250) / (58.5225 + 1250), 1e-9);
}

TEST(Similarity, TransparencyIsLaidOnWhiteAndSizesMustAgree) {
    Picture glass(9, 9, 4);
    for (int y = 0; y < 9; ++y)
        std::fill_n(glass.edit().row(y), 9 * 4, std::uint8_t(0));
    EXPECT_TRUE(std::isinf(between(glass, plainPicture(9, 9, 3, {255, 255, 255})).peakSignalToNoise));
    EXPECT_EQ(errorNumberOf([&] {
                  between(glass, plainPicture(9, 8, 3, {0, 0, 0}));
              }),
              ErrorNumber::InvalidCall);
}

} // namespace
