// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/OutputName.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

/// Tokens stand for themselves in these tests.
QString pathOf(const settings::BatchSave& settings, int position = 1, const char* row = "dsc1") {
    return outputName(
               settings, {position, text(row), text("/source/")},
               [](const QString& token) { return token == QLatin1String("[No Prefix]") ? QString() : token; })
        .path();
}

settings::BatchSave settingsOf(int option, int destination = 1) {
    settings::BatchSave settings;
    settings.NameOption = qint16(option);
    settings.DestinationOption = qint16(destination);
    settings.DestinationFolder = text("  /out/ ");
    return settings;
}

} // namespace

TEST(OutputName, TheSourceFolderCountsForNamesOfPartsAlone) {
    EXPECT_EQ(pathOf(settingsOf(0, 0)), text("/out/dsc1.jpg"));
    EXPECT_EQ(pathOf(settingsOf(0, 0), 1, "scan.tif3"), text("/out/scan.tif3.jpg"));
    EXPECT_TRUE(pathOf(settingsOf(2, 0)).startsWith(text("/out/")));
    EXPECT_TRUE(pathOf(settingsOf(1, 0)).startsWith(text("/source/")));
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
    settings::BatchSave settings = settingsOf(1);
    for (const Case& one : cases) {
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
        const char* expected; ///< name; nothing for an error
        qint32 error = 0;
    };
    const Case cases[] = {
        {"[Starting 1]", 1, "/out/Sample1.jpg"},
        {"[Starting 1]", 40000, "/out/Sample40000.jpg"},
        {"[Starting 1001]", 3, "/out/Sample1003.jpg"},
        {"7", 3, "/out/Sample9.jpg"},
        {" 12 ", 1, "/out/Sample12.jpg"},
        {"-1", 1, "/out/Sample-1.jpg"},
        {"32767", 1, "/out/Sample32767.jpg"},
        {"32767", 2, "", ErrorNumber::Overflow},
        {"32768", 1, "", ErrorNumber::Overflow},
        {"99999999999", 1, "", ErrorNumber::Overflow},
        {"one", 1, "", ErrorNumber::TypeMismatch},
        {"", 1, "", ErrorNumber::TypeMismatch},
    };
    settings::BatchSave settings = settingsOf(2);
    for (const Case& one : cases) {
        SCOPED_TRACE(one.pattern);
        settings.RenameGenericPattern = text(one.pattern);
        QString path;
        EXPECT_EQ(errorNumberOf([&] { path = pathOf(settings, one.position); }), one.error);
        EXPECT_EQ(path, text(one.expected));
    }
}

TEST(OutputName, ANameThatWouldLeaveItsFolderIsFaulty) {
    const auto faultOf = [](const QString& name) { return nameFault({text("/out/"), name}); };
    for (const char* name : {"a\\b:c*?.jpg", "...jpg"})
        EXPECT_EQ(faultOf(text(name)), QString());
    for (const char* name : {"../a.jpg", "1/60.jpg", "/etc/passwd.jpg"})
        EXPECT_TRUE(contains(faultOf(text(name)), name));
    EXPECT_FALSE(faultOf(text("a") + QChar(0) + text(".jpg")).isEmpty());
}
