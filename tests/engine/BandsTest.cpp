// SPDX-License-Identifier: GPL-3.0-or-later
// Operations on large pictures use several threads where they may.

#include "pixels/operations/Bands.h"
#include "base/Spreading.h"
#include "base/Stop.h"
#include "imaging/ImageBox.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/ForkedChild.h"
#include "tests/support/TestPictures.h"

#include <atomic>
#include <cerrno>
#include <functional>
#include <gtest/gtest.h>
#include <new>
#include <set>
#include <sys/syscall.h>
#include <thread>
#include <utility>

using namespace tarsel;
using namespace tarsel::operations;

namespace {

constexpr Spreading overThree{3, 1};

using Work = std::function<void(ImageBox&)>;

const std::vector<std::pair<const char*, Work>>& operationsOfTheBox() {
    static const auto mergedWith = [](int style, int channels, double transparency) {
        return [=](ImageBox& box) {
            box.MergeStyle = style;
            box.MergeTransparency = transparency;
            box.MergeX = box.MergeY = -2;
            box.MergeHandle(test::noisePicture(51, 43, channels, 2));
        };
    };
    static const std::vector<std::pair<const char*, Work>> operations = {
        {"brightness", [](ImageBox& box) { box.Brightness(70, true, false, true); }},
        {"contrast", [](ImageBox& box) { box.Contrast(70, true, false, true); }},
        {"negative", [](ImageBox& box) { box.Negative(); }},
        {"sharpen", [](ImageBox& box) { box.Sharpen(4); }},
        {"blur", [](ImageBox& box) { box.Blur(3); }},
        {"strong blur", [](ImageBox& box) { box.Blur(8); }},
        {"mirror", [](ImageBox& box) { box.Flip(0); }},
        {"flip", [](ImageBox& box) { box.Flip(1); }},
        {"turn by 90", [](ImageBox& box) { box.Rotate(90); }},
        {"turn by 180", [](ImageBox& box) { box.Rotate(180); }},
        {"turn by 33", [](ImageBox& box) { box.Rotate(33); }},
        {"enlarge", [](ImageBox& box) { box.Resize(box.Width() * 2 + 1, box.Height() * 2 + 1); }},
        {"reduce", [](ImageBox& box) { box.Resize(5, 19); }},
        {"take means", [](ImageBox& box) { box.Resize(box.Width() / 3, box.Height()); }},
        {"merge at a place", mergedWith(0, 4, 0)},
        {"merge tiles", mergedWith(2, 3, 50)},
        {"merge a cover", mergedWith(1, 4, 30)},
    };
    return operations;
}

/// `shared` work goes into a new picture, other work happens in place.
Picture changed(const Picture& original, const Work& work, bool shared) {
    ImageBox box;
    box.Resample = true;
    box.setPictureHandle(original);
    if (!shared) {
        Picture own = original;
        own.edit();
        box.setPictureHandle(std::exchange(own, {}));
    }
    work(box);
    return box.picture();
}

} // namespace

TEST(Bands, OperationsMakeTheSameBytesOnAnyNumberOfThreads) {
    for (const auto& [width, height] : {test::PictureSize{69, 101}, {300, 211}, {12, 5}})
        for (const int channels : {3, 4})
            for (const bool shared : {true, false})
                for (const auto& [name, work] : operationsOfTheBox()) {
                    const Picture original = test::noisePicture(width, height, channels);
                    const Picture expected = changed(original, work, shared);
                    const SpreadingScope scope(overThree);
                    EXPECT_TRUE(changed(original, work, shared) == expected)
                        << name << ": " << width << " x " << height << " x " << channels;
                }
}

TEST(Bands, CoverEveryRowOnceAndOnlyLargePicturesOfAThreadThatMayAreSplit) {
    const auto countOf = [](int rows, std::int64_t pixels) {
        int next = 0;
        const std::vector<Band> bands = bandsOf(rows, pixels);
        for (const Band& band : bands) {
            EXPECT_EQ(band.begin, next);
            next = band.end;
        }
        EXPECT_EQ(next, rows);
        return bands.size();
    };
    EXPECT_EQ(countOf(3000, 12'000'000), 1U);
    const SpreadingScope scope({2});
    EXPECT_EQ(countOf(3000, 11'999'999), 1U);
    EXPECT_GT(countOf(3000, 12'000'000), 2U);
    EXPECT_EQ(countOf(3, 12'000'000), 3U);
    EXPECT_EQ(countOf(0, 12'000'000), 1U);
    std::thread([&] { EXPECT_EQ(countOf(3000, 12'000'000), 1U) << "another thread"; }).join();
}

TEST(Bands, EndWithTheErrorOfOneBandOrOnAStop) {
    const SpreadingScope scope(overThree);
    const std::vector<Band> bands = bandsOf(100, 100);
    const auto failing = [](const Band& band) {
        if (band.index == 1)
            throw std::bad_alloc();
    };
    EXPECT_EQ(test::errorNumberOf([&] { forBands(bands, failing); }), ErrorNumber::OutOfMemory);
    std::stop_source source;
    const StopScope stop(source.get_token());
    std::atomic<int> done = 0;
    const auto stopping = [&](const Band&) {
        source.request_stop();
        ++done;
    };
    EXPECT_EQ(test::errorNumberOf([&] { forBands(bands, stopping); }), ErrorNumber::Interrupted);
    EXPECT_LE(done, 3) << "no thread takes another band";
}

TEST(Bands, AreAllWorkedOnWhenNoThreadCanBeStarted) {
    EXPECT_EQ(test::inChild([] {
                  test::failSystemCall(SYS_clone3, EAGAIN);
                  test::failSystemCall(SYS_clone, EAGAIN);
                  const SpreadingScope scope(overThree);
                  std::set<int> done; // on one thread: no lock
                  forBands(bandsOf(100, 100), [&](const Band& band) { done.insert(band.index); });
                  return int(done.size());
              }),
              12);
}
