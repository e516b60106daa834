// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/Naming.h"
#include "embedded/IptcFields.h"
#include "tests/output/TestBasket.h"
#include "tests/support/Corpus.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

/// A box with a picture of 40 x 30 that came from a file of 200 x 100.
class NamingTest : public testing::Test {
protected:
    NamingTest() {
        box.setPictureHandle(shadedPicture(40, 30));
        box.Tag = text("200x100");
    }
    struct Row {
        const char *token, *expected;
    };
    void expectNames(std::initializer_list<Row> rows, const QString& path = {}) {
        for (const Row& row : rows)
            EXPECT_EQ(fncRetrieveNamingString(box, text(row.token), path, text("jpg")), text(row.expected))
                << row.token;
    }
    void exif(const char* name, const char* value) { ASSERT_TRUE(box.ExifSet(text(name), text(value))); }

    TestDesktop desktop; // 7 March 2004, 3:05:09 PM
    ImageBox box;
};

} // namespace

TEST_F(NamingTest, TheBoxesOfferTokensButNoSpellingsThatCanOnlyBeTyped) {
    EXPECT_EQ(namingTokens().size(), 25);
    EXPECT_EQ(namingTokens().first() + namingTokens().last(), text("[No Prefix][IPTC Ref. Number]"));
    EXPECT_EQ(namingSeparators().join(u' '), text("_ - = , . ; ! AND [WhiteSpace] [No Separator]"));
}

TEST_F(NamingTest, SizesDatesAndTextsOfTheirOwn) {
    expectNames({
        {"[Source resolution]", "200x100"},
        {"[Resulting resolution]", "40x30"},
        {"[Resulting size]", ""},
        {"[Date Today]", "3.7.2004"},
        {"[Date Today-Time]", "3.7.2004 3.05.09 PM"},
        {"Holiday", "Holiday"},
        {"", ""},
        {"[no prefix]", "[no prefix]"},
        {"[No Prefix] ", "[No Prefix] "},
        {"[IPTC Ref. Date]", "[IPTC Ref. Date]"},
        {"[IPTC Ref. Number]", "[IPTC Ref. Number]"},
        {"[EXIF Lens]", "[EXIF Lens]"},
    });
    desktop.time = QDateTime(QDate(2024, 12, 31), QTime(0, 0, 0));
    expectNames({{"[Date Today-Time]", "12.31.2024 12.00.00 AM"}});
    box.Clear();
    expectNames({{"Holiday", ""}, {"[Date Today]", ""}, {"[Source resolution]", ""}});
}

TEST_F(NamingTest, PairsOfExifValuesKeepTheirSignBesideOneValueOnly) {
    expectNames({{"[EXIF Make & Model]", ""}, {"[EXIF X-Y Dimension]", ""}});
    exif("Make", "Canon");
    expectNames({{"[EXIF Make & Model]", "Canon-"}});
    exif("Model", "A1");
    exif("PixelYDimension", "480");
    expectNames({{"[EXIF Make & Model]", "Canon-A1"},
                 {"[EXIF X-Y Dimension]", "x480"},
                 {"[EXIF Make]", "Canon"},
                 {"[EXIF Artist]", ""}});
}

TEST_F(NamingTest, TheFirstDateInThePicturesOrderDecidesAndWithoutOneToday) {
    expectNames({{"[EXIF Date]", ""}, {"[EXIF Date-Time]", ""}});
    exif("Make", "Canon");
    expectNames({{"[EXIF Date]", "3.7.2004"}, {"[EXIF Date-Time]", "3.7.2004 3.05.09 PM"}});
    exif("DateTime", "1999:01:02 23:04:05");
    exif("DateTimeOriginal", "1998:05:06 07:08:09");
    expectNames({{"[EXIF Date]", "1.2.1999"}, {"[EXIF Date-Time]", "1.2.1999 11.04.05 PM"}});
}

TEST_F(NamingTest, AnUnreadableDateIsReportedAndLeavesWhatStoodThere) {
    exif("DateTime", "yesterday at noon..");
    expectNames({{"[EXIF Date]", ""}});
    EXPECT_EQ(desktop.reports.size(), 1u);
    exif("Make", "Canon"); // an attribute in front of the date
    expectNames({{"[EXIF Date]", "3.7.2004"}});
    EXPECT_EQ(desktop.reports.size(), 2u);
}

TEST_F(NamingTest, IptcMembersCountOnlyInAPictureWithIptc) {
    for (const char* token : {"[IPTC Headline]", "[IPTC Caption]", "[IPTC Author]", "[IPTC Date Created]",
                              "[IPTC Date Released]", "[IPTC Reference Date]", "[IPTC Reference Number]"})
        expectNames({{token, ""}});
    setIptcText(box.metadata(), "IptcHeadline", text("Flood"));
    setIptcText(box.metadata(), "IptcAuthor", text("Jo"));
    setIptcText(box.metadata(), "IptcReferenceNumber", text("17"));
    setIptcDate(box.metadata(), "IptcDateCreated", QDateTime(QDate(2004, 1, 31), QTime()));
    expectNames({{"[IPTC Headline]", "Flood"},
                 {"[IPTC Author]", "Jo"},
                 {"[IPTC Reference Number]", "17"},
                 {"[IPTC Date Created]", "1.31.2004 12.00.00 AM"},
                 {"[IPTC Date Released]", "12.30.1899 12.00.00 AM"}});
}

TEST_F(NamingTest, FileTokensReadTheSourceFile) {
    const TestBasket folder;
    QFile file(folder.writeFile("a.jpg", QByteArray(1536, 'x')));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QDateTime time(QDate(2001, 2, 3), QTime(14, 5, 6));
    ASSERT_TRUE(file.setFileTime(time, QFileDevice::FileModificationTime));
    expectNames({{"[Source size]", "1.50KB"}, {"[Source Date Modified]", "2.3.2001 2.05.06 PM"}},
                file.fileName());
}

/// As exiftool lists these files.
TEST_F(NamingTest, TokensOfRealPictures) {
    TARSEL_REQUIRE_CORPUS();
    const auto load = [&](const char* name) {
        box.LoadFromFile(*corpusFolder() + text("/meta/") + text(name));
    };
    load("ExifTool.jpg");
    expectNames({{"[EXIF Image Description]", "A witty caption"},
                 {"[EXIF Artist]", "Phil Harvey"},
                 {"[EXIF Make & Model]", "FUJIFILM-FinePix2400Zoom"},
                 {"[EXIF Date-Time]", "2.26.2004 9.36.46 AM"},
                 {"[EXIF X-Y Dimension]", "100x80"},
                 {"[IPTC Headline]", "No headline"},
                 {"[IPTC Author]", "Phil Harvey"},
                 {"[IPTC Date Created]", "2.26.2004 12.00.00 AM"}});
    load("MWG.jpg");
    expectNames({{"[EXIF Date]", "1.1.2001"},
                 {"[EXIF Make & Model]", ""},
                 {"[IPTC Caption]", "WRONG-IPTC-Description"}});
    load("metadata.psd");
    expectNames({{"[EXIF Artist]", "KDE Project"}, {"[IPTC Caption]", "TV broadcast test image."}});
}
