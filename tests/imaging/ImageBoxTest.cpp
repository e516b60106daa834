// SPDX-License-Identifier: GPL-3.0-or-later
// The box as its callers use it: settings, checks, snapshots, display.

#include "base/TrappedError.h"
#include "tests/support/Boxes.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/TestPictures.h"

#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <utility>

using namespace tarsel;
using namespace tarsel::test;

namespace {

constexpr int SharedFormat = 7;
constexpr Color Blue = 0xFF0000;

Place sizeOf(const ImageBox& box) {
    return {box.Width(), box.Height()};
}

using Call = std::function<void(ImageBox&)>;

const std::vector<std::pair<const char*, Call>>& pictureCalls() {
    static const Picture mark = plainPicture(5, 5, 3, {1, 2, 3});
    static const std::vector<std::pair<const char*, Call>> calls = {
        {"Brightness", [](ImageBox& b) { b.Brightness(70, true, true, true); }},
        {"Contrast", [](ImageBox& b) { b.Contrast(70, true, true, true); }},
        {"Sharpen", [](ImageBox& b) { b.Sharpen(3); }},
        {"Blur", [](ImageBox& b) { b.Blur(3); }},
        {"Negative", [](ImageBox& b) { b.Negative(); }},
        {"Flip", [](ImageBox& b) { b.Flip(0); }},
        {"Rotate", [](ImageBox& b) { b.Rotate(30); }},
        {"Resize", [](ImageBox& b) { b.Resize(9, 7); }},
        {"ResizeTo", [](ImageBox& b) { b.ResizeTo(9, 7); }},
        {"Scale", [](ImageBox& b) { b.Scale(50); }},
        {"Crop", [](ImageBox& b) { b.Crop(1, 1, 5, 5); }},
        {"CropToSelection",
         [](ImageBox& b) {
             b.SelectionActive = true;
             b.SelectEllipse(1, 1, 9, 9);
             b.CropToSelection();
         }},
        {"DrawText", [](ImageBox& b) { b.DrawText(0, 0, QStringLiteral("Text")); }},
        {"MergeHandle", [](ImageBox& b) { b.MergeHandle(mark); }},
    };
    return calls;
}

} // namespace

TEST(ImageBox, RaisesError5ForEveryOperationWhileItIsEmpty) {
    for (const auto& [name, call] : pictureCalls()) {
        ImageBox box;
        EXPECT_EQ(errorNumberOf([&] { call(box); }), ErrorNumber::InvalidCall) << name;
    }
    ImageBox box;
    EXPECT_EQ(errorNumberOf([&] { box.PixelColor(0, 0); }), ErrorNumber::InvalidCall);
    EXPECT_EQ(errorNumberOf([&] { box.SaveToMemory(SharedFormat); }), ErrorNumber::InvalidCall);
    EXPECT_EQ(box.Width(), 0);
    EXPECT_EQ(box.BitsPerPixel(), 0);
    EXPECT_EQ(box.DisplayWidth(), 0);
}

TEST(ImageBox, NeverChangesASnapshotOrAHandleAndForgetsWhatItEncoded) {
    const Picture original = noisePicture(37, 29, 3);
    for (const auto& [name, call] : pictureCalls()) {
        ImageBox box = boxWith(noisePicture(37, 29, 3));
        const Picture snapshot = box.SaveToMemory(SharedFormat);
        const PictureHandle handle = box.pictureHandle();
        box.EncodedSize(0);
        call(box);
        EXPECT_EQ(box.encoded(QStringLiteral("bmp")), boxWith(box.picture()).encoded(QStringLiteral("bmp")))
            << name;
        EXPECT_TRUE(snapshot == original) << name;
        EXPECT_TRUE(handle == original) << name;
        EXPECT_FALSE(box.picture() == original) << name;
        box.LoadFromMemory(snapshot, SharedFormat);
        EXPECT_TRUE(box.picture() == original) << name;
    }
}

TEST(ImageBox, KeepsItsPixelsInPlaceWhereTheSizeStaysAndNobodyElseLooks) {
    for (const char* inPlace :
         {"Brightness", "Contrast", "Sharpen", "Blur", "Negative", "Flip", "DrawText", "MergeHandle"})
        for (const auto& [name, call] : pictureCalls())
            if (std::string_view(name) == inPlace) {
                ImageBox box = boxWith(noisePicture(37, 29, 3));
                const auto* const pixels = box.picture().view().data;
                call(box);
                EXPECT_EQ(box.picture().view().data, pixels) << name;
            }
}

TEST(ImageBox, RefusesSizesThatCannotBeAndKeepsThePicture) {
    ImageBox box = boxWith(noisePicture(30, 20, 3));
    const int far = std::numeric_limits<int>::max();
    const std::vector<Call> calls = {
        [](ImageBox& b) { b.Resize(0, 10); },
        [](ImageBox& b) { b.ResizeTo(10, -1); },
        [=](ImageBox& b) { b.Resize(far, far); },
        [](ImageBox& b) { b.ResizeTo(100000, 100000); },
        [](ImageBox& b) { b.Scale(0); },
        [](ImageBox& b) { b.Scale(-20); },
        [](ImageBox& b) { b.Scale(std::numeric_limits<float>::quiet_NaN()); },
        [](ImageBox& b) { b.Scale(1e9F); },
        [](ImageBox& b) { b.Crop(10, 0, 10, 5); },
        [](ImageBox& b) { b.Crop(10, 0, 5, 5); },
        [](ImageBox& b) { b.Crop(0, 8, 5, 3); },
        [=](ImageBox& b) { b.Crop(-far, -far, far, far); },
        [](ImageBox& b) { b.Flip(2); },
        [](ImageBox& b) { b.Rotate(std::numeric_limits<float>::infinity()); },
        [](ImageBox& b) { b.Rotate(std::numeric_limits<float>::quiet_NaN()); },
        [](ImageBox& b) { b.CropToSelection(); },
        [](ImageBox& b) {
            b.SelectRectangle(1, 1, 5, 5); // and not active
            b.CropToSelection();
        },
        [](ImageBox& b) { b.MergeHandle({}); },
        [](ImageBox& b) { b.LoadFromMemory({}, SharedFormat); },
        [](ImageBox& b) { b.LoadFromMemory(plainPicture(1, 1, 3, {}), 3); },
    };
    for (std::size_t i = 0; i < calls.size(); ++i) {
        const qint32 error = errorNumberOf([&] { calls[i](box); });
        EXPECT_TRUE(error == ErrorNumber::InvalidCall || error == ErrorNumber::OutOfMemory)
            << i << ": " << error;
        EXPECT_TRUE(box.picture() == noisePicture(30, 20, 3)) << i;
    }
}

TEST(ImageBox, CropBeyondTheEdgesCentresThePictureOnTheBackColor) {
    for (const Color back : {Blue, Color(0x8000000E)}) { // the second is the system's white
        ImageBox box = boxWith(noisePicture(30, 20, 3));
        box.BackColor = back;
        box.Crop(-10, -10, 40, 30);
        ASSERT_EQ(sizeOf(box), (Place{50, 40}));
        for (const auto& [x, y] : {Place{9, 9}, {40, 30}})
            EXPECT_EQ(box.PixelColor(x, y), back == Blue ? Blue : 0xFFFFFF);
        box.Crop(10, 10, 40, 30);
        EXPECT_TRUE(box.picture() == noisePicture(30, 20, 3));
    }
}

TEST(ImageBox, CropsToWhatIsSelectedInWhateverDirectionItWasDragged) {
    for (const bool ellipse : {false, true}) {
        ImageBox box = boxWith(noisePicture(30, 20, 3));
        box.BackColor = Blue;
        box.SelectionActive = true;
        if (ellipse)
            box.SelectEllipse(25, 18, 5, 2);
        else
            box.SelectRectangle(25, 18, 5, 2);
        box.CropToSelection();
        ASSERT_EQ(sizeOf(box), (Place{20, 16}));
        EXPECT_EQ(colorAt(box.picture(), 10, 8), colorAt(noisePicture(30, 20, 3), 15, 10));
        EXPECT_EQ(box.PixelColor(0, 0) == Blue, ellipse);
        EXPECT_EQ(errorNumberOf([&] { box.CropToSelection(); }),
                  ErrorNumber::InvalidCall); // the selection is used up
    }
}

TEST(ImageBox, KeepsItsSettingsFromPictureToPicture) {
    ImageBox box = boxWith(noisePicture(30, 20, 3));
    box.MergeStyle = 2;
    box.Font.Size = 33.5;
    box.Clear();
    EXPECT_FALSE(box.HasImage());
    box.setPictureHandle(noisePicture(3, 2, 3));
    EXPECT_EQ(box.MergeStyle, 2);
    EXPECT_EQ(box.Font.Size, 33.5);
}

TEST(ImageBox, ResizeToIsSmoothOnlyWithResample) {
    for (const bool smooth : {false, true}) {
        ImageBox box = boxWith(pictureOf(10, 10, 3, [](int x, int) {
            return x < 5 ? Rgb{} : Rgb{255, 255, 255};
        }));
        box.Resample = smooth;
        box.ResizeTo(37, 23);
        const int middle = colorAt(box.picture(), 18, 11).red;
        EXPECT_EQ(middle > 0 && middle < 255, smooth);
    }
}

TEST(ImageBox, ScalesByPercentToAtLeastOnePixel) {
    const struct {
        float percent;
        Place size;
    } cases[] = {{50, {100, 50}}, {6.25F, {12, 6}}, {0.001F, {1, 1}}, {100, {200, 100}}}; // ties to even
    for (const auto& c : cases) {
        ImageBox box = boxWith(noisePicture(200, 100, 3));
        box.Scale(c.percent);
        EXPECT_EQ(sizeOf(box), c.size) << c.percent;
    }
}

TEST(ImageBox, ShowsAPictureInItsOwnSizeOrFittedIntoTheControl) {
    const struct {
        Place picture, control;
        bool isFitted;
        Place shown;
    } cases[] = {{{400, 300}, {200, 200}, false, {400, 300}},
                 {{400, 300}, {200, 200}, true, {200, 150}},
                 {{400, 300}, {1600, 900}, true, {1200, 900}},
                 {{1000, 1}, {10, 900}, true, {10, 1}},
                 {{1000, 1}, {0, 900}, true, {1000, 1}}};
    for (const auto& c : cases) {
        ImageBox box = boxWith(noisePicture(c.picture.x, c.picture.y, 3));
        box.ControlWidth = c.control.x;
        box.ControlHeight = c.control.y;
        box.StretchToFit = c.isFitted;
        EXPECT_EQ((Place{box.DisplayWidth(), box.DisplayHeight()}), c.shown) << c.control.x;
    }
}

TEST(ImageBox, TellsColorsInsideThePictureOnly) {
    ImageBox box = boxWith(plainPicture(4, 3, 4, {0x11, 0x22, 0x33}));
    EXPECT_EQ(box.PixelColor(3, 2), 0x332211);
    for (const auto& [x, y] : {PictureSize{-1, 0}, {0, -1}, {4, 0}, {0, 3}})
        EXPECT_EQ(errorNumberOf([&, x = x, y = y] { box.PixelColor(x, y); }), ErrorNumber::InvalidCall);
}
