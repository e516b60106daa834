// SPDX-License-Identifier: GPL-3.0-or-later
// The box as its callers use it: settings, checks, snapshots, display.

#include "imaging/ImageBox.h"

#include "base/TrappedError.h"
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

ImageBox boxWith(const Picture& picture) {
    ImageBox box;
    box.setPictureHandle(picture);
    return box;
}

using Call = std::function<void(ImageBox&)>;

const std::vector<std::pair<const char*, Call>>& pictureCalls() {
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
        {"MergeHandle",
         [](ImageBox& b) {
             b.MergeHandle(plainPicture(5, 5, 3, {1, 2, 3}));
         }},
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

TEST(ImageBox, NeverChangesASnapshotOrAHandle) {
    const Picture original = noisePicture(37, 29, 3);
    for (const auto& [name, call] : pictureCalls()) {
        ImageBox box = boxWith(noisePicture(37, 29, 3));
        const Picture snapshot = box.SaveToMemory(SharedFormat);
        const PictureHandle handle = box.pictureHandle();
        call(box);
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
    ImageBox box = boxWith(noisePicture(30, 20, 3));
    box.BackColor = Blue;
    box.Crop(-10, -10, 40, 30);
    ASSERT_EQ(box.Width(), 50);
    ASSERT_EQ(box.Height(), 40);
    EXPECT_EQ(box.PixelColor(9, 9), Blue);
    EXPECT_EQ(box.PixelColor(40, 30), Blue);
    box.Crop(10, 10, 40, 30);
    EXPECT_TRUE(box.picture() == noisePicture(30, 20, 3));
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
        ASSERT_EQ(box.Width(), 20);
        ASSERT_EQ(box.Height(), 16);
        EXPECT_EQ(colorAt(box.picture(), 10, 8), colorAt(noisePicture(30, 20, 3), 15, 10));
        EXPECT_EQ(box.PixelColor(0, 0) == Blue, ellipse);
        EXPECT_EQ(errorNumberOf([&] { box.CropToSelection(); }),
                  ErrorNumber::InvalidCall); // the selection is used up
    }
}

TEST(ImageBox, KeepsItsSettingsFromPictureToPicture) {
    ImageBox box = boxWith(noisePicture(30, 20, 3));
    box.Resample = true;
    box.BackColor = Blue;
    box.MergeStyle = 2;
    box.TextAngle = -90;
    box.Font.Size = 33.5;
    box.Clear();
    EXPECT_FALSE(box.HasImage());
    box.setPictureHandle(noisePicture(3, 2, 3));
    EXPECT_TRUE(box.Resample);
    EXPECT_EQ(box.BackColor, Blue);
    EXPECT_EQ(box.MergeStyle, 2);
    EXPECT_EQ(box.TextAngle, -90);
    EXPECT_EQ(box.Font.Size, 33.5);
}

TEST(ImageBox, ResizeToIsSmoothOnlyWithResample) {
    const Picture edge = pictureOf(10, 10, 3, [](int x, int) {
        const auto value = std::uint8_t(x < 5 ? 0 : 255);
        return Rgb{value, value, value};
    });
    const auto grays = [&](bool resample) {
        ImageBox box = boxWith(edge);
        box.Resample = resample;
        box.ResizeTo(37, 23);
        int count = 0;
        for (int x = 0; x < 37; ++x)
            count += box.PixelColor(x, 11) != 0 && box.PixelColor(x, 11) != 0xFFFFFF;
        return count;
    };
    EXPECT_EQ(grays(false), 0);
    EXPECT_GT(grays(true), 1);
}

TEST(ImageBox, ScalesByPercentToAtLeastOnePixel) {
    ImageBox box = boxWith(noisePicture(200, 100, 3));
    box.Scale(50);
    EXPECT_EQ(box.Width(), 100);
    EXPECT_EQ(box.Height(), 50);
    box.Scale(12.5F); // 12.5 and 6.25, ties to even
    EXPECT_EQ(box.Width(), 12);
    EXPECT_EQ(box.Height(), 6);
    box.Scale(0.001F);
    EXPECT_EQ(box.Width(), 1);
    EXPECT_EQ(box.Height(), 1);
    box.Scale(100);
    EXPECT_EQ(box.Width(), 1);
}

TEST(ImageBox, ShowsAPictureInItsOwnSizeOrFittedIntoTheControl) {
    ImageBox box = boxWith(noisePicture(400, 300, 3));
    box.ControlWidth = 200;
    box.ControlHeight = 200;
    EXPECT_EQ(box.DisplayWidth(), 400);
    EXPECT_EQ(box.DisplayHeight(), 300);
    box.StretchToFit = true;
    EXPECT_EQ(box.DisplayWidth(), 200);
    EXPECT_EQ(box.DisplayHeight(), 150);
    box.ControlWidth = 1600;
    box.ControlHeight = 900;
    EXPECT_EQ(box.DisplayWidth(), 1200);
    EXPECT_EQ(box.DisplayHeight(), 900);
    box.setPictureHandle(noisePicture(1000, 1, 3));
    box.ControlWidth = 10;
    EXPECT_EQ(box.DisplayHeight(), 1);
    box.ControlWidth = 0;
    EXPECT_EQ(box.DisplayWidth(), 1000);
}

TEST(ImageBox, TellsColorsInsideThePictureOnly) {
    ImageBox box = boxWith(plainPicture(4, 3, 4, {0x11, 0x22, 0x33}));
    EXPECT_EQ(box.PixelColor(3, 2), 0x332211);
    for (const auto& [x, y] : {PictureSize{-1, 0}, {0, -1}, {4, 0}, {0, 3}})
        EXPECT_EQ(errorNumberOf([&, x = x, y = y] { box.PixelColor(x, y); }), ErrorNumber::InvalidCall);
}

TEST(ImageBox, ResolvesSystemColorsInItsSettings) {
    ImageBox box = boxWith(plainPicture(4, 4, 3, {9, 9, 9}));
    box.BackColor = Color(0x8000000E);
    box.Crop(-1, 0, 4, 4);
    EXPECT_EQ(box.PixelColor(0, 0), 0xFFFFFF);
}

TEST(ImageBox, DrawsTextAtTheBottomRightFlushWithTheEdges) {
    ImageBox box = boxWith(plainPicture(300, 100, 3, {255, 255, 255}));
    box.Font.Name = QStringLiteral("DejaVu Sans");
    box.TextTransparent = false;
    box.TextBackColor = Blue;
    box.TextAlignment = 2;
    const QString text = QStringLiteral("Harbour");
    box.DrawText(300, 100 - box.TextHeight(text), text);
    EXPECT_EQ(box.PixelColor(299, 99), Blue);
    EXPECT_EQ(box.PixelColor(300 - box.TextWidth(text), 99), Blue);
    EXPECT_EQ(box.PixelColor(299 - box.TextWidth(text), 99), 0xFFFFFF);
    EXPECT_EQ(box.PixelColor(299, 99 - box.TextHeight(text)), 0xFFFFFF);
}
