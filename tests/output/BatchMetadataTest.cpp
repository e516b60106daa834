// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/ExifBlock.h"
#include "embedded/IptcFields.h"
#include "tests/output/TestBasket.h"
#include "tests/support/Corpus.h"

#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

class BatchMetadata : public testing::Test, public TestBasket {
protected:
    void addDescribedPicture() {
        addPicture("a.jpg", 24, 16, [](ImageBox& maker) {
            ASSERT_TRUE(maker.ExifSet(text("Artist"), text("Jo")));
            ASSERT_TRUE(maker.ExifSet(text("DateTimeOriginal"), text("2004:01:31 15:05:09")));
            ASSERT_TRUE(maker.ExifSet(text("GPSLatitudeRef"), text("N")));
            setIptcText(maker.metadata(), "IptcHeadline", text("Flood"));
            setIptcList(maker.metadata(), "IptcKeyword", {text("water"), text("town")});
        });
    }
};

QString exifOf(const ImageBox& box, const char* name) {
    return box.ExifValueByName(text(name));
}

} // namespace

TEST_F(BatchMetadata, ExifAndIptcStayWithTheirPictureAndSoftwareIsSet) {
    halveSizes();
    addDescribedPicture();
    addPicture("b.jpg");
    EXPECT_TRUE(run());
    const ImageBox described = loaded(path("out/a.jpg"));
    EXPECT_EQ(exifOf(described, "Artist"), text("Jo"));
    EXPECT_EQ(exifOf(described, "DateTimeOriginal"), text("2004:01:31 15:05:09"));
    EXPECT_EQ(exifOf(described, "Software"), text("Tarsel JPEG"));
    EXPECT_EQ(exifOf(described, "GPSLatitudeRef"), text("N"));
    EXPECT_EQ(iptcText(described.metadata(), "IptcHeadline"), text("Flood"));
    EXPECT_EQ(iptcList(described.metadata(), "IptcKeyword"), QStringList({text("water"), text("town")}));
    const ImageBox plain = loaded(path("out/b.jpg"));
    EXPECT_EQ(exifOf(plain, "Software"), text("Tarsel JPEG"));
    EXPECT_EQ(exifOf(plain, "Artist"), QString());
    EXPECT_FALSE(plain.HasIptc());
}

TEST_F(BatchMetadata, ImportsReplaceIptcAndSetExifAfterTheNameWasRead) {
    addDescribedPicture();
    ImageBox other;
    other.setPictureHandle(shadedPicture(4, 4));
    setIptcText(other.metadata(), "IptcCaption", text("New"));
    settings.ImportIPTC = 1;
    settings.ImportIPTCFile = path("side.ffo");
    other.IptcSaveToFile(settings.ImportIPTCFile);
    importExif("side.xiff", "\"Artist\",\"Al, the second\"\r\n\"DateTime\",\"1/31/2004 3:05:09 PM\"\r\n");
    nameByParts("[EXIF Artist]");
    EXPECT_TRUE(run());
    const ImageBox result = loaded(path("out/Jo_a_.jpg"));
    EXPECT_EQ(iptcText(result.metadata(), "IptcCaption"), text("New"));
    EXPECT_EQ(iptcText(result.metadata(), "IptcHeadline"), QString());
    EXPECT_EQ(exifOf(result, "Artist"), text("Al, the second"));
    EXPECT_EQ(exifOf(result, "DateTime"), text("2004:01:31 15:05:09"));
}

TEST_F(BatchMetadata, AMissingSideFileIsPassedOver) {
    addDescribedPicture();
    settings.ImportIPTC = settings.ImportEXIF = 1;
    settings.ImportIPTCFile = path("gone.ffo");
    settings.ImportEXIFFile = text("  ");
    EXPECT_TRUE(run());
    EXPECT_EQ(exifOf(loaded(path("out/a.jpg")), "Artist"), text("Jo"));
    EXPECT_TRUE(desktop.reports.empty());
}

TEST_F(BatchMetadata, RealPicturesGetTheImportsAndLoseWhatIsPrivate) {
    TARSEL_REQUIRE_CORPUS();
    settings.StripPrivate = settings.ImportIPTC = 1;
    MetadataStore side;
    setIptcText(side, "IptcCaption", text("New"));
    settings.ImportIPTCFile = path("side.ffo");
    side.IptcSaveToFile(settings.ImportIPTCFile);
    importExif("side.xiff", "\"Artist\",\"Al\"\r\n");
    for (const CorpusPicture& picture : corpusPictures())
        if (picture.fact("category") == text("meta"))
            addRow(picture.path, QString::number(pages.count()));
    std::ignore = run();
    int written = 0;
    for (const RowResult& result : results) {
        if (result.state != RowState::Written)
            continue;
        ++written;
        SCOPED_TRACE(result.source.toStdString());
        const ImageBox after = loaded(result.target);
        EXPECT_EQ(exifOf(after, "Artist"), text("Al"));
        EXPECT_EQ(exifOf(after, "Make"), exifOf(loaded(result.source), "Make"));
        EXPECT_EQ(iptcText(after.metadata(), "IptcCaption"), text("New"));
        for (int i = 0; i < after.ExifCount(); ++i)
            EXPECT_FALSE(after.ExifName(i).contains(text("GPS")) ||
                         after.ExifName(i).contains(text("Serial")));
        const EmbeddedMetadata blocks = after.metadata().blocks();
        EXPECT_FALSE(blocks.xmp.contains("GPSL") || blocks.xmp.contains("SerialNumber"));
        EXPECT_FALSE(ExifBlock::read(blocks.exif)->thumbnail().contains("Exif"));
    }
    EXPECT_GT(written, 20);
}
