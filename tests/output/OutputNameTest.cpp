// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/OutputName.h"
#include "tests/support/ErrorNumberOf.h"

#include <gtest/gtest.h>

using namespace tarsel;
using tarsel::test::errorNumberOf;

namespace {

QString text(const char* latin1) {
    return QString::fromLatin1(latin1);
}

/// Tokens stand for themselves in these tests.
QString pathOf(const BatchSave& settings, int position = 1, const char* row = "dsc1") {
    return outputName(
               settings, {position, text(row), text("/source/")},
               [](const QString& token) { return token == QLatin1String("[No Prefix]") ? QString() : token; })
        .path();
}

BatchSave settingsOf(int option) {
    BatchSave settings;
    settings.NameOption = qint16(option);
    settings.DestinationFolder = text("  /out/ ");
    return settings;
}

} // namespace

TEST(OutputName, KeepsTheRowsTextWithItsOldExtensionIfItHasOne) {
    const BatchSave settings = settingsOf(0);
    EXPECT_EQ(pathOf(settings), text("/out/dsc1.jpg"));
    EXPECT_EQ(pathOf(settings, 1, "scan.tif3"), text("/out/scan.tif3.jpg"));
}

TEST(OutputName, TheSourceFolderCountsInTheHybridOptionAlone) {
    for (const int option : {0, 2}) {
        BatchSave settings = settingsOf(option);
        settings.DestinationOption = 0;
        EXPECT_TRUE(pathOf(settings).startsWith(text("/out/"))) << option;
    }
    BatchSave hybrid = settingsOf(1);
    hybrid.DestinationOption = 0;
    EXPECT_TRUE(pathOf(hybrid).startsWith(text("/source/")));
    hybrid.DestinationOption = 1;
    EXPECT_TRUE(pathOf(hybrid).startsWith(text("/out/")));
}

TEST(OutputName, SeparatorsStandEvenBesideNothing) {
    struct Case {
        const char *prefix, *separator1, *separator2, *suffix, *expected;
    };
    const Case cases[] = {
        {"[No Prefix]", "_", "_", "640x480", "/out/_dsc1_640x480.jpg"},
        {"[No Prefix]", "_", "_", "[No Prefix]", "/out/_dsc1_.jpg"},
        {"[No Prefix]", "[No Separator]", "[No Separator]", "[No Prefix]", "/out/dsc1.jpg"},
        {"Holiday", "[WhiteSpace]", "AND", "", "/out/Holiday dsc1AND.jpg"},
        {"", "-", "=", "end", "/out/-dsc1=end.jpg"},
    };
    for (const Case& one : cases) {
        BatchSave settings = settingsOf(1);
        settings.DestinationOption = 1;
        settings.RenamePrefix = text(one.prefix);
        settings.Separator1 = text(one.separator1);
        settings.Separator2 = text(one.separator2);
        settings.RenameSuffix = text(one.suffix);
        EXPECT_EQ(pathOf(settings), text(one.expected));
    }
}

TEST(OutputName, TheCountFollowsTheRowsPlaceWithoutPadding) {
    struct Case {
        const char* pattern;
        int position;
        const char* expected;
    };
    const Case cases[] = {
        {"[Starting 1]", 1, "/out/Sample1.jpg"},
        {"[Starting 1]", 40000, "/out/Sample40000.jpg"},
        {"[Starting 1001]", 3, "/out/Sample1003.jpg"},
        {"7", 3, "/out/Sample9.jpg"},
        {" 12 ", 1, "/out/Sample12.jpg"},
        {"-1", 1, "/out/Sample-1.jpg"},
        {"32767", 1, "/out/Sample32767.jpg"},
    };
    for (const Case& one : cases) {
        BatchSave settings = settingsOf(2);
        settings.RenameGenericPattern = text(one.pattern);
        EXPECT_EQ(pathOf(settings, one.position), text(one.expected));
    }
}

TEST(OutputName, ACountBeyondSixteenBitsOrNoCountIsAnError) {
    BatchSave settings = settingsOf(2);
    const auto errorAt = [&](const char* pattern, int position) {
        settings.RenameGenericPattern = text(pattern);
        return errorNumberOf([&] { pathOf(settings, position); });
    };
    EXPECT_EQ(errorAt("32767", 2), ErrorNumber::Overflow);
    EXPECT_EQ(errorAt("32768", 1), ErrorNumber::Overflow);
    EXPECT_EQ(errorAt("99999999999", 1), ErrorNumber::Overflow);
    EXPECT_EQ(errorAt("one", 1), ErrorNumber::TypeMismatch);
    EXPECT_EQ(errorAt("", 1), ErrorNumber::TypeMismatch);
}

TEST(OutputName, ANameThatWouldLeaveItsFolderIsFaulty) {
    EXPECT_TRUE(nameFault({text("/out/"), text("a\\b:c*?.jpg")}).isEmpty());
    EXPECT_TRUE(nameFault({text("/out/"), text("...jpg")}).isEmpty());
    for (const char* name : {"../a.jpg", "1/60.jpg", "/etc/passwd.jpg"})
        EXPECT_TRUE(nameFault({text("/out/"), text(name)}).contains(text(name))) << name;
    EXPECT_FALSE(nameFault({text("/out/"), QStringLiteral("a") + QChar(0) + text(".jpg")}).isEmpty());
}
