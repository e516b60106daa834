// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/scanner/PageAssembly.h"
#include "acquisition/scanner/ScanLines.h"
#include "tests/support/TestPictures.h"

#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

ScannerFrame frameOf(ScanFrameFormat format, int width, int lines, int bytesPerLine, int depth = 8) {
    return {int(format), 1, bytesPerLine, width, lines, depth};
}

bool add(PageAssembly& page, const std::vector<int>& values) {
    std::vector<std::byte> bytes;
    for (const int value : values)
        bytes.push_back(std::byte(value));
    return page.add(bytes);
}

/// Lines of gray whose first pixel is their number.
std::vector<int> grayLines(int count, int bytesPerLine) {
    std::vector<int> values(std::size_t(count) * std::size_t(bytesPerLine), 200);
    for (int y = 0; y < count; ++y)
        values[std::size_t(y) * std::size_t(bytesPerLine)] = y % 256;
    return values;
}

} // namespace

TEST(PageAssembly, LeavesOutThePaddingOfLines) {
    PageAssembly page;
    ASSERT_TRUE(page.begin(frameOf(ScanFrameFormat::Rgb, 1, 2, 5)));
    ASSERT_TRUE(add(page, {1, 2, 3, 99, 99, 4, 5}));
    ASSERT_TRUE(add(page, {6, 99, 99}));
    page.end();
    EXPECT_FALSE(page.isCut());
    const Picture picture = page.take();
    ASSERT_EQ(std::pair(picture.width(), picture.height()), std::pair(1, 2));
    EXPECT_EQ(colorAt(picture, 0, 1), (Rgb{4, 5, 6}));
}

TEST(PageAssembly, DropsTheLowBytesOfWords) {
    const std::vector<std::uint16_t> words{0x12FE, 0x80FF, 0xFF01};
    for (const ScanFrameFormat format : {ScanFrameFormat::Rgb, ScanFrameFormat::Gray}) {
        PageAssembly page;
        const bool isGray = format == ScanFrameFormat::Gray;
        ASSERT_TRUE(page.begin(frameOf(format, isGray ? 3 : 1, 1, 6, 16)));
        ASSERT_TRUE(page.add(std::as_bytes(std::span(words))));
        page.end();
        const Picture picture = page.take();
        EXPECT_EQ(colorAt(picture, 0, 0), isGray ? (Rgb{0x12, 0x12, 0x12}) : (Rgb{0x12, 0x80, 0xFF}));
    }
}

TEST(PageAssembly, IsAsHighAsTheLinesThatCame) {
    const struct {
        int promised, sent, spare;
        bool isCut;
    } cases[] = {
        {10, 4, 0, true}, {10, 4, 2, true}, {3, 10, 0, false}, {-1, 3000, 1, false}, {0, 1, 0, false}};
    for (const auto& [promised, sent, spare, isCut] : cases) {
        SCOPED_TRACE(std::to_string(promised) + " promised");
        PageAssembly page;
        ASSERT_TRUE(page.begin(frameOf(ScanFrameFormat::Gray, 3, promised, 3)));
        ASSERT_TRUE(add(page, grayLines(sent, 3)));
        ASSERT_TRUE(add(page, std::vector<int>(std::size_t(spare), 1)));
        page.end();
        EXPECT_EQ(page.isCut(), isCut);
        const Picture picture = page.take();
        ASSERT_EQ(picture.height(), sent);
        for (int y = 0; y < sent; ++y)
            ASSERT_EQ(colorAt(picture, 0, y).red, y % 256);
    }
    PageAssembly nothing;
    ASSERT_TRUE(nothing.begin(frameOf(ScanFrameFormat::Gray, 3, 10, 3)));
    ASSERT_TRUE(add(nothing, {1, 2}));
    nothing.end();
    EXPECT_TRUE(nothing.take().isNull());
}

TEST(PageAssembly, TakesTheLowestOfThreeFrames) {
    PageAssembly page;
    const int lines[] = {3, 2, 5};
    for (int channel = 0; channel < 3; ++channel) {
        ASSERT_TRUE(page.begin(frameOf(ScanFrameFormat(int(ScanFrameFormat::Red) + channel), 1, 3, 1)));
        ASSERT_TRUE(add(page, std::vector<int>(std::size_t(lines[channel]), 10 * (channel + 1))));
        page.end();
    }
    EXPECT_TRUE(page.isCut());
    const Picture picture = page.take();
    ASSERT_EQ(picture.height(), 2);
    EXPECT_EQ(colorAt(picture, 0, 1), (Rgb{10, 20, 30}));
}

TEST(PageAssembly, RefusesFramesThatMakeNoSense) {
    for (const ScannerFrame& frame :
         {frameOf(ScanFrameFormat::Gray, 0, 1, 1), frameOf(ScanFrameFormat::Gray, -5, 1, 1),
          frameOf(ScanFrameFormat::Gray, 8, 1, 7), frameOf(ScanFrameFormat::Rgb, 8, 1, 23),
          frameOf(ScanFrameFormat::Gray, 8, 1, 15, 16), frameOf(ScanFrameFormat::Rgb, 9, 1, 5, 1),
          frameOf(ScanFrameFormat::Gray, 8, 1, 8, 12), frameOf(ScanFrameFormat(11), 8, 1, 8),
          frameOf(ScanFrameFormat(-1), 8, 1, 8), frameOf(ScanFrameFormat::Gray, 1 << 30, 1 << 30, 1 << 30),
          frameOf(ScanFrameFormat::Gray, 2147483647, 1, 2147483647)})
        EXPECT_FALSE(PageAssembly().begin(frame));
    PageAssembly page;
    ASSERT_TRUE(page.begin(frameOf(ScanFrameFormat::Red, 4, 1, 4)));
    page.end();
    EXPECT_FALSE(page.begin(frameOf(ScanFrameFormat::Green, 5, 1, 5))) << "of another width";
}
