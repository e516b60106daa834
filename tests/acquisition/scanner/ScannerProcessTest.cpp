// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/ColorReduction.h"
#include "tests/acquisition/scanner/TestScanner.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/TestPictures.h"

#include <algorithm>

using namespace tarsel;
using namespace tarsel::test;

namespace {

using ScannerProcessTest = OpenScanner;

std::vector<int> numbersOf(const ScanResult& result) {
    std::vector<int> numbers;
    for (const ScannedPage& page : result.pages)
        numbers.push_back(page.number);
    return numbers;
}

} // namespace

TEST_F(ScannerProcessTest, ListsScannersAndOpensOneOfThem) {
    const std::vector<ScanDevice> devices = scanner.devices();
    const auto found = std::ranges::find(devices, testScanner, &ScanDevice::name);
    ASSERT_NE(found, devices.end());
    EXPECT_FALSE(found->vendor.isEmpty() || found->model.isEmpty() || found->type.isEmpty());
    EXPECT_FALSE(scanner.isOpen()) << "the search closes the device";
    scanner.open(testScanner);
    EXPECT_TRUE(scanner.isOpen());
    EXPECT_NE(scanner.options().findSettable(scanOption::mode), nullptr);
    const TrappedError error = errorOf([&] { scanner.open(QStringLiteral("nonsense:0")); });
    EXPECT_TRUE(error.description.contains(u"nonsense:0")) << error.description.toStdString();
    EXPECT_FALSE(scanner.isOpen());
}

TEST_F(ScannerProcessTest, ShowsWhiteAndBlackAsTheyAreInEveryModeAndDepth) {
    for (const char* mode : {"Gray", "Color"})
        for (const int depth : {1, 8, 16})
            for (const int level : {0, 255}) {
                SCOPED_TRACE(std::string(mode) + " " + std::to_string(depth) + " bits");
                set("mode", mode);
                set("depth", depth);
                set("test-picture", level ? "Solid white" : "Solid black");
                const ScanResult result = scan();
                ASSERT_EQ(result.pages.size(), 1U);
                const Picture& picture = result.pages[0].picture;
                const auto shade = std::uint8_t(level);
                EXPECT_EQ(picture, plainPicture(picture.width(), picture.height(), 3, {shade, shade, shade}));
                const bool isColor = mode[0] == 'C';
                EXPECT_EQ(result.pages[0].colorFormat, int(isColor      ? ColorFormat::TrueColor
                                                           : depth == 1 ? ColorFormat::BlackAndWhite
                                                                        : ColorFormat::Gray256));
            }
}

TEST_F(ScannerProcessTest, SeesTheSamePageInWhateverPiecesItComes) {
    set("mode", "Color");
    set("test-picture", "Color pattern");
    const Picture page = scanned();
    EXPECT_EQ(std::pair(page.width(), page.height()), std::pair(62, 78)) << "80 x 100 mm at 20 dpi";
    EXPECT_GT(largestDifference(page, plainPicture(62, 78, 3, colorAt(page, 0, 0))), 100);

    set("fuzzy-parameters", true);
    EXPECT_EQ(scanned(), page) << "other sizes before the start";
    set("read-limit", true);
    set("read-limit-size", 7);
    EXPECT_EQ(scanned(), page) << "pieces that end within pixels";
    set("three-pass", true);
    for (const char* order : {"RGB", "RBG", "GBR", "GRB", "BRG", "BGR"}) {
        set("three-pass-order", order);
        EXPECT_EQ(scanned(), page) << order;
    }
    set("read-limit", false);
    set("three-pass", false);
    set("hand-scanner", true);
    const Picture byHand = scanned();
    EXPECT_EQ(byHand.width(), 86) << "11 cm";
    EXPECT_GE(byHand.height(), 10);
    set("hand-scanner", false);
    set("ppl-loss", 5);
    EXPECT_EQ(scanned().width(), 62 - 5) << "pixels that are lost at the end of each line";
}

TEST_F(ScannerProcessTest, ReadsAFeederUntilItIsEmpty) {
    set("source", "Automatic Document Feeder");
    const ScanResult all = scan({.firstNumber = 4});
    EXPECT_EQ(numbersOf(all), (std::vector<int>{4, 5, 6, 7, 8, 9, 10, 11, 12, 13}));
    EXPECT_EQ(all.end.reason, ScanEndReason::Done) << "an empty feeder after a page is no failure";
    EXPECT_EQ(all.end.pages, 10);
    EXPECT_EQ(numbersOf(scan({.mostPages = 3})), (std::vector<int>{1, 2, 3}));
    set("source", "Flatbed");
    EXPECT_EQ(numbersOf(scan()), std::vector<int>{1});
}

TEST_F(ScannerProcessTest, TellsWhatTheScannerRounded) {
    set("enable-test-options", true);
    const std::vector<RoundedSetting> rounded =
        scanner.set({{QStringLiteral("int-inexact"), 100}, {QStringLiteral("int-constraint-range"), 5}});
    ASSERT_FALSE(rounded.empty());
    EXPECT_EQ(rounded[0].name, QStringLiteral("int-inexact"));
    EXPECT_NE(rounded[0].taken, rounded[0].wanted);
    EXPECT_EQ(scanner.options().find(rounded[0].name)->value, rounded[0].taken);
}

TEST_F(ScannerProcessTest, RefusesWhatCantBeSetAndKeepsTheRest) {
    const auto refusal = [this](const ScanSetting& setting) {
        return errorOf([&] {
                   scanner.set({{QStringLiteral("depth"), 16}, setting, {QStringLiteral("depth"), 1}});
               })
            .description.toStdString();
    };
    for (const ScanSetting& setting :
         {ScanSetting{QStringLiteral("warp"), 1},
          ScanSetting{QStringLiteral("three-pass"), true}, // not in gray
          ScanSetting{QStringLiteral("mode"), QStringLiteral("Sepia")},
          ScanSetting{QStringLiteral("mode"), 3}, ScanSetting{QStringLiteral("resolution"), 1e12}}) {
        EXPECT_NE(refusal(setting).find(setting.name.toStdString()), std::string::npos) << refusal(setting);
        EXPECT_EQ(scanner.options().find(scanOption::depth)->value, ScanValue(16));
    }
    EXPECT_EQ(scan().pages.size(), 1U);
}

TEST_F(ScannerProcessTest, GoesBackFromAPreviewToTheOptionsBefore) {
    scanner.set(scanner.options().settingsForArea({20, 30, 50, 60}));
    set("resolution", 300.0);
    bool wasSaved = false;
    const ScanResult preview = scan({.isPreview = true, .save = [&](const ScannedPage&) {
                                         wasSaved = true;
                                         return AcquiredFile();
                                     }});
    ASSERT_EQ(preview.pages.size(), 1U);
    EXPECT_NEAR(preview.pages[0].picture.width(), 200 / 25.4 * 75, 2) << "the whole glass at 75 dpi";
    EXPECT_FALSE(wasSaved);
    EXPECT_EQ(scanner.options().dpiX(), 300);
    EXPECT_EQ(scanner.options().area(), QRectF(20, 30, 50, 60));
}
