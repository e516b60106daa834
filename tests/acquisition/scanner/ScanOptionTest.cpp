// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/scanner/OptionDecoding.h"
#include "acquisition/scanner/PackedRecords.h"

#include <gtest/gtest.h>

using namespace tarsel;

namespace {

ScanOption option(const QString& name, ScanOptionType type, const ScanValue& value) {
    ScanOption made;
    made.name = name;
    made.type = type;
    made.value = value;
    made.isActive = made.isSettable = true;
    return made;
}

ScanOption edge(const QString& name, ScanUnit unit, double value, double maximum) {
    ScanOption made = option(name, ScanOptionType::Fixed, value);
    made.unit = unit;
    made.range = ScanRange{0, maximum, 0};
    return made;
}

/// A glass of 200 x 300 mm.
ScanOptions glass(ScanUnit unit, double perMillimetre) {
    ScanOption resolution = option(scanOption::resolution, ScanOptionType::Int, 254);
    resolution.choices = {75, 150, 254};
    return ScanOptions({resolution, edge(scanOption::left, unit, 0, 200 * perMillimetre),
                        edge(scanOption::top, unit, 0, 300 * perMillimetre),
                        edge(scanOption::right, unit, 200 * perMillimetre, 200 * perMillimetre),
                        edge(scanOption::bottom, unit, 300 * perMillimetre, 300 * perMillimetre)});
}

} // namespace

TEST(ScanOption, TakesTextsThatAreValues) {
    ScanOption fixed = option(QStringLiteral("threshold"), ScanOptionType::Fixed, 1.0);
    fixed.range = ScanRange{0, 50, 0.5};
    EXPECT_EQ(scanValueFromText(fixed, QStringLiteral("12.25")), ScanValue(12.25));
    for (const char* wrong : {"", "a lot", "50.5", "-1", "nan"})
        EXPECT_FALSE(scanValueFromText(fixed, QString::fromLatin1(wrong))) << wrong;

    ScanOption list = option(QStringLiteral("depth"), ScanOptionType::Int, 8);
    list.choices = {1, 8, 16};
    EXPECT_EQ(scanValueFromText(list, QStringLiteral("16")), ScanValue(16));
    for (const char* wrong : {"12", "8.5", "0x8"})
        EXPECT_FALSE(scanValueFromText(list, QString::fromLatin1(wrong))) << wrong;

    ScanOption texts = option(scanOption::mode, ScanOptionType::String, QStringLiteral("Gray"));
    texts.choices = {QStringLiteral("Gray"), QStringLiteral("Color")};
    EXPECT_EQ(scanValueFromText(texts, QStringLiteral("color")), ScanValue(QStringLiteral("Color")));
    EXPECT_FALSE(scanValueFromText(texts, QStringLiteral("Colour")));
    const ScanOption flag = option(scanOption::preview, ScanOptionType::Bool, false);
    EXPECT_EQ(scanValueFromText(flag, QStringLiteral("Yes")), ScanValue(true));
    EXPECT_EQ(scanValueFromText(flag, QStringLiteral("0")), ScanValue(false));
    EXPECT_FALSE(scanValueFromText(flag, QStringLiteral("maybe")));
    EXPECT_EQ(scanValueText(215.900009), QStringLiteral("215.9"));
}

TEST(ScanOption, SetsTheAreaInTheUnitOfTheScanner) {
    const QRectF wanted(20, 30, 100, 400);
    for (const ScanUnit unit : {ScanUnit::Millimetre, ScanUnit::Pixel}) {
        const double perMillimetre = unit == ScanUnit::Pixel ? 10 : 1; // 254 dpi
        const ScanOptions options = glass(unit, perMillimetre);
        EXPECT_EQ(options.wholeArea(), QRectF(0, 0, 200, 300));
        const std::vector<ScanSetting> settings = options.settingsForArea(wanted);
        ASSERT_EQ(settings.size(), 4U);
        EXPECT_EQ(settings[0].name, scanOption::right) << "the far edge first";
        EXPECT_EQ(settings[0].value, ScanValue(120 * perMillimetre));
        EXPECT_EQ(settings[1].value, ScanValue(300 * perMillimetre)) << "not beyond the glass";
        EXPECT_EQ(settings[2].value, ScanValue(20 * perMillimetre));
    }
}

TEST(ScanOption, TakesTheNearestResolution) {
    const std::vector<ScanSetting> settings = glass(ScanUnit::Millimetre, 1).settingsForResolution(100);
    ASSERT_EQ(settings.size(), 1U);
    EXPECT_EQ(settings[0].value, ScanValue(75));
}

TEST(ScanOption, KnowsFeedersAndBothSides) {
    for (const char* feeder : {"Automatic Document Feeder", "ADF", "ADF Front", "Adf-duplex"})
        EXPECT_TRUE(isFeederSource(QString::fromLatin1(feeder))) << feeder;
    for (const char* other : {"Flatbed", "Transparency Unit", ""})
        EXPECT_FALSE(isFeederSource(QString::fromLatin1(other))) << other;
    EXPECT_FALSE(ScanOptions().isFeeder().has_value());

    ScanOption mode = option(QStringLiteral("adf-mode"), ScanOptionType::String, QStringLiteral("Simplex"));
    mode.choices = {QStringLiteral("Simplex"), QStringLiteral("Duplex")};
    const ScanOptions options({mode});
    ASSERT_NE(options.duplex(), nullptr);
    EXPECT_EQ(options.duplexValue(true), ScanValue(QStringLiteral("Duplex")));
    EXPECT_EQ(options.duplexValue(false), ScanValue(QStringLiteral("Simplex")));
}

TEST(ScanOption, DropsChoicesOfAnotherKindThanTheValues) {
    constexpr int wordList = 2, textList = 3;
    for (const ScanOptionType type : {ScanOptionType::String, ScanOptionType::Int}) {
        const bool isText = type == ScanOptionType::String;
        PackedWriter packed;
        for (const char* text : {"mode", "Mode", ""})
            packed.text(text);
        for (const int number : {int(type), 0, 1, 1, isText ? wordList : textList, 1})
            packed.number(number);
        if (isText)
            packed.number(7);
        else
            for (int form = 0; form < 2; ++form) // as the driver has it, and to be read
                packed.text("Gray");
        packed.number(0); // no value
        const auto options = unpackOptions(packed.bytes());
        ASSERT_TRUE(options);
        ASSERT_EQ(options->all().size(), 1U);
        EXPECT_TRUE(options->all()[0].choices.empty());
        EXPECT_TRUE(options->all()[0].choiceTexts.isEmpty());
        EXPECT_TRUE(
            scanValueFromText(options->all()[0], isText ? QStringLiteral("Gray") : QStringLiteral("7")));
    }
}

TEST(ScanOption, RefusesAnswersThatAreCutAnywhere) {
    PackedWriter packed;
    for (const char* text : {"mode", "Scan mode", "Selects\na mode"})
        packed.text(text);
    for (const int number : {int(ScanOptionType::String), 0, 5, 1, 3, 1})
        packed.number(number);
    for (const char* text : {"Gray", "Grau"})
        packed.text(text);
    packed.number(1);
    packed.text("Gray");
    const std::span<const std::byte> bytes(packed.bytes());
    const auto options = unpackOptions(bytes);
    ASSERT_TRUE(options && options->all().size() == 1);
    const ScanOption& mode = options->all()[0];
    EXPECT_EQ(mode.description, QStringLiteral("Selects a mode"));
    EXPECT_EQ(mode.choices, std::vector<ScanValue>{QStringLiteral("Gray")});
    EXPECT_EQ(mode.choiceTexts, QStringList{QStringLiteral("Grau")});
    EXPECT_TRUE(mode.canBeSet());
    for (std::size_t size = 1; size < bytes.size(); ++size)
        EXPECT_FALSE(unpackOptions(bytes.first(size))) << size;
    EXPECT_FALSE(unpackDevices(bytes.first(7)));
}
