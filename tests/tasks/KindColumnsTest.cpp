// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/TaskCheck.h"
#include "tests/support/TestDesktop.h"
#include "tests/tasks/TaskRows.h"

#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

const QString font = QStringLiteral("DejaVu Sans");

/// A row in which no two columns could be exchanged unseen, and the calls on the box that it stands for.
struct KindCase {
    const char* what;
    TaskRow row;
    std::function<void(ImageBox&)> direct;
    Color back = 0xFFFFFF; ///< of the box, as is the next
    bool resample = false;
};

class KindColumns : public testing::Test {
protected:
    KindColumns() {
        ImageBox maker = boxWith(unevenPicture(9, 5));
        maker.SaveToFile(mark);
    }

    TaskRow watermark(const char* transparent, const char* transparency, const char* style) const {
        TaskRow row = taskRow(9, {transparent, transparency, style, "", "1318440", "12", "23"});
        row.columns[3] = mark;
        return row;
    }

    /// `bold`, `italic` and `underline` one at a time: exchanged columns draw another font.
    KindCase textCase(const char* what, bool bold, bool italic, bool underline) const {
        const auto flag = [](bool on) { return on ? "True" : "False"; };
        return {what,
                taskRow(10, {"True", "", "False", "20", "1", "DejaVu Sans", "17", flag(bold), flag(italic),
                             flag(underline), "255", "16711680", "0", "9", "Tarsel", "40", "30"}),
                [=](ImageBox& box) {
                    box.TextAntiAlias = true;
                    box.TextTransparent = false;
                    box.TextAngle = 20;
                    box.TextAlignment = 1;
                    box.Font = {font, 17, bold, italic, underline};
                    box.TextColor = 255;
                    box.TextBackColor = 16711680;
                    box.DrawText(40, 30, QStringLiteral("Tarsel"));
                }};
    }

    std::vector<KindCase> cases() const;

    TestDesktop desktop;
    QTemporaryDir folder;
    QString mark = folder.filePath(QStringLiteral("mark.bmp"));
};

std::vector<KindCase> KindColumns::cases() const {
    return {
        {"flip", taskRow(1, {"0"}), [](ImageBox& box) { box.Flip(0); }},
        {"flip of any other text", taskRow(1, {"left"}), [](ImageBox& box) { box.Flip(1); }},
        {"rotate", taskRow(2, {"True", "17", "6553855"}), [](ImageBox& box) { box.Rotate(17); }, 6553855,
         true},
        {"resize to a size", taskRow(3, {"True", "31", "77"}), [](ImageBox& box) { box.ResizeTo(31, 77); }},
        {"rotate by a half degree", taskRow(2, {"False", "-12.5", "255"}),
         [](ImageBox& box) { box.Rotate(-12); }, 255, false},
        {"resize by a half percent", taskRow(3, {"False", "26.5", ""}), [](ImageBox& box) { box.Scale(26); }},
        {"blur by a half", taskRow(4, {"2.5"}), [](ImageBox& box) { box.Blur(2); }},
        {"contrast of red", taskRow(5, {"70", "True", "False", "False"}),
         [](ImageBox& box) { box.Contrast(70, true, false, false); }},
        {"contrast of blue", taskRow(5, {"70", "0", "0", "1"}),
         [](ImageBox& box) { box.Contrast(70, false, false, true); }},
        {"brightness of red", taskRow(6, {"70", "True", "False", "False"}),
         [](ImageBox& box) { box.Brightness(70, true, false, false); }},
        {"brightness of blue", taskRow(6, {"30", "False", "False", "True"}),
         [](ImageBox& box) { box.Brightness(30, false, false, true); }},
        {"sharpen by a half", taskRow(7, {"3.5"}), [](ImageBox& box) { box.Sharpen(4); }},
        {"crop in picture pixels", taskRow(8, {"False", "-3", "2", "25", "39", "", "80"}),
         [](ImageBox& box) { box.Crop(-3, 2, 25, 39); }},
        {"crop on a scaled display", taskRow(8, {"False", "5", "3", "40", "25", "50", "45"}),
         [](ImageBox& box) { box.Crop(10, 6, 80, 50); }},
        {"crop to a typed rectangle", taskRow(8, {"True", "0", "4", "7", "61", "43", "255"}),
         [](ImageBox& box) { box.Crop(4, 7, 61, 43); }},
        {"crop to an ellipse", taskRow(8, {"True", "1", "4", "7", "61", "43", "6553855"}),
         [](ImageBox& box) {
             box.SelectEllipse(4, 7, 61, 43);
             box.SelectionActive = true;
             box.CropToSelection();
         },
         6553855},
        {"watermark at a place", watermark("False", "35", "1"),
         [this](ImageBox& box) {
             box.MergeTransparency = 35;
             box.MergeStyle = 1;
             box.MergeX = 23;
             box.MergeY = 12;
             box.MergeFile(mark);
         }},
        // The colour of the mark's first pixel: red 40, green 30, blue 20.
        {"tiled watermark without a colour", watermark("True", "60", "2"),
         [this](ImageBox& box) {
             box.MergeTransparent = true;
             box.MergeTransparency = 60;
             box.MergeTransparentColor = 0x141E28;
             box.MergeStyle = 2;
             box.MergeFile(mark);
         }},
        textCase("bold text", true, false, false),
        textCase("italic text", false, true, false),
        textCase("underlined text", false, false, true),
        {"text without a box, at a named position",
         taskRow(10, {"False", "", "True", "0", "2", "DejaVu Sans", "11", "False", "False", "False", "65280",
                      "255", "1", "2", "Vertical", "3", "4"}),
         [](ImageBox& box) {
             box.TextAntiAlias = false;
             box.TextTransparent = true;
             box.TextAngle = 0;
             box.TextAlignment = 2;
             box.Font = {font, 11, false, false, false};
             box.TextColor = 65280;
             box.TextBackColor = 255;
             box.DrawText(box.Width(), 0, QStringLiteral("Vertical"));
         }},
        {"invert", taskRow(11, {}), [](ImageBox& box) { box.Negative(); }},
        {"canvas", taskRow(12, {"6553855", "1", "2", "3", "4"}),
         [](ImageBox& box) { box.Crop(-1, -2, 103, 94); }, 6553855},
        {"colour frame", taskRow(13, {"6553855", "2", "4", "0"}),
         [](ImageBox& box) { box.Crop(-4, -4, 104, 94); }, 6553855},
    };
}

} // namespace

TEST_F(KindColumns, EachColumnReachesTheOperationThatItIsMeantFor) {
    for (const KindCase& each : cases()) {
        ImageBox expected = boxWith(unevenPicture(100, 90));
        expected.BackColor = each.back;
        expected.Resample = each.resample;
        each.direct(expected);
        ImageBox box = boxWith(unevenPicture(100, 90));
        SCOPED_TRACE(each.what);
        EXPECT_EQ(checkRow(each.row).state, TaskCheck::State::Ok);
        EXPECT_TRUE(replayAll(box, {each.row}));
        EXPECT_EQ(box.picture(), expected.picture());
        EXPECT_FALSE(box.picture() == unevenPicture(100, 90)) << "changes nothing";
    }
    EXPECT_TRUE(desktop.reports.empty());
}

TEST_F(KindColumns, ACropOnAScaledDisplayLeavesTheBoxStretchedForTheClickedTextAfterIt) {
    ImageBox box = boxWith(unevenPicture(200, 100));
    EXPECT_TRUE(replayAll(box, {taskRow(8, {"False", "0", "0", "80", "40", "100", "50"}),
                                textRow("9", "10", "5")})); // 160 x 80 on 100 x 50
    EXPECT_TRUE(box.StretchToFit);
    EXPECT_EQ(box.ControlWidth, 100.0f);
    EXPECT_EQ(box.ControlHeight, 50.0f);
    EXPECT_EQ(box.picture(),
              replayed(200, 100, {taskRow(8, {"False", "0", "0", "160", "80"}), textRow("9", "16", "8")}));
    EXPECT_TRUE(desktop.reports.empty());
}
