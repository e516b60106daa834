// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/IptcFields.h"
#include "metadata/modMetadata.h"
#include "tests/support/TestDesktop.h"
#include "tests/support/TiffStructure.h"

#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::modMetadata;
using namespace tarsel::test;

namespace {

const QString path = QStringLiteral("/pictures/dsc1.jpg");

ImageBox boxWith(const EmbeddedMetadata& blocks) {
    ImageBox box;
    box.setPictureHandle(Picture(4, 3, 3));
    box.metadata() = MetadataStore(blocks);
    return box;
}

int rowOf(const ListView& list, const char* label) {
    for (int i = 0; i < list.count(); ++i)
        if (list.row(i).text == QLatin1String(label))
            return i;
    return -1;
}

QString valueOf(const ListView& list, const char* label) {
    const int row = rowOf(list, label);
    return row < 0 ? QStringLiteral("no row") : list.subItem(row, 1);
}

class MetadataList : public testing::Test {
protected:
    /// Shows the rows of a box with these attributes.
    void showExif(std::initializer_list<std::pair<const char*, const char*>> attributes) {
        ImageBox box = boxWith({});
        for (const auto& [name, value] : attributes)
            ASSERT_TRUE(box.ExifSet(QLatin1String(name), QLatin1String(value))) << name;
        ListExifAttributes(box, list, path);
    }

    TestDesktop desktop;
    ListView list;
};

} // namespace

TEST_F(MetadataList, EditableRowsHaveAKeyAndAnIconOthersOnlyTheirTag) {
    showExif({{"Make", "Acme"}, {"Software", "Editor"}, {"DateTimeOriginal", "2004:01:31 15:05:09"}});
    EXPECT_EQ(list.tag(), path);
    const ListRow& make = list.row(rowOf(list, "Make"));
    EXPECT_EQ(make.key, QStringLiteral("Make"));
    EXPECT_EQ(make.tag, QStringLiteral("Make"));
    EXPECT_EQ(make.icon, editableIcon);
    const ListRow& software = list.row(rowOf(list, "Software"));
    EXPECT_TRUE(software.key.isEmpty());
    EXPECT_EQ(software.tag, QStringLiteral("Software"));
    EXPECT_EQ(software.icon, -1);
    EXPECT_EQ(valueOf(list, "Date/Time Original"), QStringLiteral("1/31/2004 3:05:09 PM"));
    EXPECT_EQ(list.row(rowOf(list, "Date/Time Original")).key, QStringLiteral("DateTimeOriginal"));
}

TEST_F(MetadataList, DatesThatCannotBeReadStandAsTheyAre) {
    showExif({{"DateTime", "2004:01:31 24:00:00"},
              {"DateTimeOriginal", "0000:00:00 00:00:00"},
              {"FNumber", "28/10"}});
    EXPECT_TRUE(desktop.reports.empty());
    EXPECT_EQ(valueOf(list, "Date/Time"), QStringLiteral("2004:01:31 24:00:00"));
    EXPECT_EQ(valueOf(list, "Date/Time Original"), QStringLiteral("0000:00:00 00:00:00"));
    EXPECT_EQ(valueOf(list, "F-Number"), QStringLiteral("f/2.8"));
}

TEST_F(MetadataList, AValueThatCannotBeWordedShowsRawAndTheListGoesOn) {
    showExif({{"ExposureTime", "0/1"}, {"MeteringMode", "5"}});
    EXPECT_EQ(desktop.reports.size(), 1u);
    EXPECT_EQ(valueOf(list, "Exposure Time"), QStringLiteral("0/1"));
    EXPECT_EQ(valueOf(list, "Metering Mode"), QStringLiteral("Multi-segment"));
}

TEST_F(MetadataList, APictureWithoutIptcHasAllRowsAndEachIsEmpty) {
    const ImageBox box = boxWith({});
    ListIptcAttributes(box, list, path);
    ASSERT_EQ(list.count(), 52);
    for (int i = 0; i < list.count(); ++i) {
        EXPECT_TRUE(list.subItem(i, 1).isEmpty()) << i;
        EXPECT_EQ(list.row(i).icon, editableIcon);
        EXPECT_TRUE(list.row(i).key.isEmpty() && list.row(i).tag.isEmpty());
    }
    EXPECT_EQ(list.row(0).text, QStringLiteral("Caption"));
    EXPECT_EQ(list.row(31).text, QStringLiteral("Custom Field 1"));
    EXPECT_EQ(list.row(50).text, QStringLiteral("Custom Field 20"));
    EXPECT_EQ(list.row(51).text, QStringLiteral("Image Notes"));
}

TEST_F(MetadataList, KeywordsAreJoinedByCommasAndDatesShowShort) {
    ImageBox box = boxWith({});
    setIptcList(box.metadata(), "IptcKeyword", {QStringLiteral("ship"), QStringLiteral("sea, calm")});
    setIptcDate(box.metadata(), "IptcDateCreated", QDate(2004, 1, 31).startOfDay());
    ListIptcAttributes(box, list, path);
    EXPECT_EQ(valueOf(list, "Keywords"), QStringLiteral("ship,sea, calm"));
    EXPECT_EQ(valueOf(list, "Date Created"), QStringLiteral("1/31/2004"));
    EXPECT_EQ(valueOf(list, "Date Released"), QString());
}

TEST_F(MetadataList, AnEmptyBoxMakesNoRowsAndLeavesTheTag) {
    list.setTag(QStringLiteral("before"));
    ListExifAttributes(ImageBox(), list, path);
    ListIptcAttributes(ImageBox(), list, path);
    EXPECT_TRUE(list.isEmpty());
    EXPECT_EQ(list.tag(), QStringLiteral("before"));
}

TEST_F(MetadataList, LookupsIgnoreCaseAndBlanksButKeysAreExact) {
    EXPECT_TRUE(IsExifEditable(QStringLiteral("  make ")));
    EXPECT_FALSE(IsExifEditable(QStringLiteral("Software")));
    EXPECT_TRUE(IsExifDate(QStringLiteral("DATETIMEoriginal")));
    EXPECT_FALSE(IsExifDate(QStringLiteral("Make")));
    EXPECT_TRUE(IsIptcDate(QStringLiteral("time released")));
    EXPECT_TRUE(ListKeyIsFree(list, QStringLiteral("Make")));
    ListRow make;
    make.key = QStringLiteral("Make");
    list.add(make);
    EXPECT_TRUE(ListKeyIsFree(list, QStringLiteral("make")));
    EXPECT_FALSE(ListKeyIsFree(list, QStringLiteral("Make")));
}
