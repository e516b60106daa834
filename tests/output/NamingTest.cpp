// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/Naming.h"
#include "embedded/IptcFields.h"
#include "tests/output/TestBasket.h"

#include <QFile>
#include <QTimeZone>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

QString text(const char* latin1) {
    return QString::fromLatin1(latin1);
}

/// A box with a picture of 40 x 30 that came from a file of 200 x 100.
class NamingTest : public testing::Test {
protected:
    NamingTest() {
        box.setPictureHandle(shadedPicture(40, 30));
        box.Tag = text("200x100");
    }
    QString named(const char* token, const QString& path = {}, const char* extension = "jpg") {
        return fncRetrieveNamingString(box, text(token), path, text(extension));
    }
    void exif(const char* name, const char* value) { ASSERT_TRUE(box.ExifSet(text(name), text(value))); }

    TestDesktop desktop; // 7 March 2004, 3:05:09 PM
    ImageBox box;
};

} // namespace

TEST_F(NamingTest, TheBoxesOfferTheVocabularyInOrder) {
    EXPECT_EQ(namingTokens().join(u'|'),
              text("[No Prefix]|[Resulting resolution]|[Resulting size]|[Date Today-Time]|[Date Today]|"
                   "[Source resolution]|[Source size]|[Source Date Created]|[Source Date Modified]|"
                   "[Source Date Accessed]|[EXIF Image Description]|[EXIF Artist]|[EXIF Date]|"
                   "[EXIF Date-Time]|[EXIF Make]|[EXIF Model]|[EXIF Make & Model]|[EXIF X-Y Dimension]|"
                   "[IPTC Headline]|[IPTC Caption]|[IPTC Author]|[IPTC Date Created]|"
                   "[IPTC Date Released]|[IPTC Ref. Date]|[IPTC Ref. Number]"));
    EXPECT_EQ(namingSeparators().join(u' '), text("_ - = , . ; ! AND [WhiteSpace] [No Separator]"));
    EXPECT_EQ(namingCounts().join(u'|'), text("[Starting 1]|[Starting 1001]"));
}

TEST_F(NamingTest, SizesAreThoseBeforeAndAfterTheTasks) {
    EXPECT_EQ(named("[Source resolution]"), text("200x100"));
    EXPECT_EQ(named("[Resulting resolution]"), text("40x30"));
    EXPECT_EQ(named("[Resulting size]"), QString());
}

TEST_F(NamingTest, DatesUsePointsAndTwelveHours) {
    EXPECT_EQ(named("[Date Today]"), text("3.7.2004"));
    EXPECT_EQ(named("[Date Today-Time]"), text("3.7.2004 3.05.09 PM"));
    desktop.time = QDateTime(QDate(2024, 12, 31), QTime(0, 0, 0));
    EXPECT_EQ(named("[Date Today-Time]"), text("12.31.2024 12.00.00 AM"));
}

TEST_F(NamingTest, AnyOtherTextStandsForItself) {
    for (const char* typed : {"Holiday", "", "[no prefix]", "[No Prefix] ", "[IPTC Ref. Date]",
                              "[IPTC Ref. Number]", "[EXIF Lens]"})
        EXPECT_EQ(named(typed), text(typed));
}

TEST_F(NamingTest, AnEmptyBoxGivesNothingForAnyText) {
    box.Clear();
    for (const char* token : {"Holiday", "[Date Today]", "[Source resolution]", "[IPTC Ref. Date]"})
        EXPECT_EQ(named(token), QString()) << token;
}

TEST_F(NamingTest, PairsOfExifValuesKeepTheirSignBesideOneValueOnly) {
    EXPECT_EQ(named("[EXIF Make & Model]"), QString());
    EXPECT_EQ(named("[EXIF X-Y Dimension]"), QString());
    exif("Make", "Canon");
    EXPECT_EQ(named("[EXIF Make & Model]"), text("Canon-"));
    exif("Model", "A1");
    EXPECT_EQ(named("[EXIF Make & Model]"), text("Canon-A1"));
    exif("PixelYDimension", "480");
    EXPECT_EQ(named("[EXIF X-Y Dimension]"), text("x480"));
    EXPECT_EQ(named("[EXIF Make]"), text("Canon"));
    EXPECT_EQ(named("[EXIF Artist]"), QString());
}

TEST_F(NamingTest, ThePictureWithoutExifHasNoExifDate) {
    EXPECT_EQ(named("[EXIF Date]"), QString());
    EXPECT_EQ(named("[EXIF Date-Time]"), QString());
}

TEST_F(NamingTest, ThePictureWithExifButWithoutADateGetsToday) {
    exif("Make", "Canon");
    EXPECT_EQ(named("[EXIF Date]"), text("3.7.2004"));
    EXPECT_EQ(named("[EXIF Date-Time]"), text("3.7.2004 3.05.09 PM"));
}

TEST_F(NamingTest, TheFirstDateInThePicturesOrderDecides) {
    exif("Make", "Canon");
    exif("DateTime", "1999:01:02 23:04:05");
    exif("DateTimeOriginal", "1998:05:06 07:08:09");
    EXPECT_EQ(named("[EXIF Date]"), text("1.2.1999"));
    EXPECT_EQ(named("[EXIF Date-Time]"), text("1.2.1999 11.04.05 PM"));
}

TEST_F(NamingTest, AnUnreadableDateIsReportedAndGivesWhatStoodThere) {
    exif("DateTime", "yesterday at noon..");
    EXPECT_EQ(named("[EXIF Date]"), QString());
    ASSERT_EQ(desktop.reports.size(), 1u);
    EXPECT_EQ(desktop.reports[0].ErrRoutine, text("fncRetrieveNamingString"));
    exif("Make", "Canon"); // an attribute in front of the date
    EXPECT_EQ(named("[EXIF Date]"), text("3.7.2004"));
    EXPECT_EQ(desktop.reports.size(), 2u);
}

TEST_F(NamingTest, IptcMembersCountOnlyInAPictureWithIptc) {
    for (const char* token : {"[IPTC Headline]", "[IPTC Caption]", "[IPTC Author]", "[IPTC Date Created]",
                              "[IPTC Date Released]", "[IPTC Reference Date]", "[IPTC Reference Number]"})
        EXPECT_EQ(named(token), QString()) << token;
    setIptcText(box.metadata(), "IptcHeadline", text("Flood"));
    setIptcText(box.metadata(), "IptcAuthor", text("Jo"));
    setIptcText(box.metadata(), "IptcReferenceNumber", text("17"));
    setIptcDate(box.metadata(), "IptcDateCreated", QDateTime(QDate(2004, 1, 31), QTime()));
    EXPECT_EQ(named("[IPTC Headline]"), text("Flood"));
    EXPECT_EQ(named("[IPTC Author]"), text("Jo"));
    EXPECT_EQ(named("[IPTC Reference Number]"), text("17"));
    EXPECT_EQ(named("[IPTC Date Created]"), text("1.31.2004 12.00.00 AM"));
    EXPECT_EQ(named("[IPTC Date Released]"), text("12.30.1899 12.00.00 AM"));
}

TEST_F(NamingTest, FileTokensReadTheSourceFile) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(text("a.jpg"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(1536, 'x'));
    file.close();
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(
        file.setFileTime(QDateTime(QDate(2001, 2, 3), QTime(14, 5, 6)), QFileDevice::FileModificationTime));
    file.close();
    EXPECT_EQ(named("[Source size]", path), text("1.50KB"));
    EXPECT_EQ(named("[Source Date Modified]", path), text("2.3.2001 2.05.06 PM"));
}
