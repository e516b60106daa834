// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "embedded/IptcFields.h"
#include "tests/output/TestBasket.h"
#include "tests/support/Corpus.h"

#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

QString text(const char* latin1) {
    return QString::fromLatin1(latin1);
}

void describe(ImageBox& maker) {
    ASSERT_TRUE(maker.ExifSet(text("Artist"), text("Jo")));
    ASSERT_TRUE(maker.ExifSet(text("DateTimeOriginal"), text("2004:01:31 15:05:09")));
    setIptcText(maker.metadata(), "IptcHeadline", text("Flood"));
    setIptcList(maker.metadata(), "IptcKeyword", {text("water"), text("town")});
}

ImageBox resultOf(TestBasket& basket) {
    EXPECT_TRUE(basket.run());
    return loaded(basket.results.at(0).target);
}

QString exifOf(const ImageBox& box, const char* name) {
    return box.ExifValueByName(text(name));
}

} // namespace

TEST(BatchMetadata, ExifAndIptcGoWithThePictureAndSoftwareIsSet) {
    TestBasket basket;
    basket.addTask(text("3"), text("resize"), {"False", "50"});
    basket.addPicture(text("a.jpg"), 24, 16, describe);
    const ImageBox result = resultOf(basket);
    EXPECT_EQ(exifOf(result, "Artist"), text("Jo"));
    EXPECT_EQ(exifOf(result, "DateTimeOriginal"), text("2004:01:31 15:05:09"));
    EXPECT_EQ(exifOf(result, "Software"), text("Tarsel JPEG"));
    EXPECT_EQ(iptcText(result.metadata(), "IptcHeadline"), text("Flood"));
    EXPECT_EQ(iptcList(result.metadata(), "IptcKeyword"), QStringList({text("water"), text("town")}));
}

TEST(BatchMetadata, APictureWithoutMetadataGetsSoftwareAlone) {
    TestBasket basket;
    basket.addPicture(text("a.jpg"));
    const ImageBox result = resultOf(basket);
    EXPECT_EQ(exifOf(result, "Software"), text("Tarsel JPEG"));
    EXPECT_FALSE(result.HasIptc());
}

TEST(BatchMetadata, MetadataOfOneRowDontLeakIntoTheNext) {
    TestBasket basket;
    basket.addPicture(text("a.jpg"), 24, 16, describe);
    basket.addPicture(text("b.jpg"));
    EXPECT_TRUE(basket.run());
    EXPECT_EQ(exifOf(loaded(basket.path(text("out/b.jpg"))), "Artist"), QString());
}

TEST(BatchMetadata, ImportsReplaceIptcAndSetExif) {
    TestBasket basket;
    basket.addPicture(text("a.jpg"), 24, 16, describe);
    ImageBox other;
    other.setPictureHandle(shadedPicture(4, 4));
    setIptcText(other.metadata(), "IptcCaption", text("New"));
    basket.settings.ImportIPTC = 1;
    basket.settings.ImportIPTCFile = basket.path(text("side.ffo"));
    other.IptcSaveToFile(basket.settings.ImportIPTCFile);
    basket.settings.ImportEXIF = 1;
    basket.settings.ImportEXIFFile = basket.path(text("side.xiff"));
    writeFileSafely(basket.settings.ImportEXIFFile,
                    "\"Artist\",\"Al, the second\"\r\n\"DateTime\",\"1/31/2004 3:05:09 PM\"\r\n");
    const ImageBox result = resultOf(basket);
    EXPECT_EQ(iptcText(result.metadata(), "IptcCaption"), text("New"));
    EXPECT_EQ(iptcText(result.metadata(), "IptcHeadline"), QString());
    EXPECT_EQ(exifOf(result, "Artist"), text("Al, the second"));
    EXPECT_EQ(exifOf(result, "DateTime"), text("2004:01:31 15:05:09"));
}

TEST(BatchMetadata, NamesAreReadBeforeTheImports) {
    TestBasket basket;
    basket.addPicture(text("a.jpg"), 24, 16, describe);
    basket.settings.ImportEXIF = 1;
    basket.settings.ImportEXIFFile = basket.path(text("side.xiff"));
    writeFileSafely(basket.settings.ImportEXIFFile, "\"Artist\",\"Al\"\r\n");
    basket.settings.NameOption = 1;
    basket.settings.DestinationOption = 1;
    basket.settings.RenamePrefix = text("[EXIF Artist]");
    resultOf(basket);
    EXPECT_EQ(basket.targets(), "Jo_a_.jpg");
}

TEST(BatchMetadata, AMissingSideFileIsPassedOver) {
    TestBasket basket;
    basket.addPicture(text("a.jpg"), 24, 16, describe);
    basket.settings.ImportIPTC = basket.settings.ImportEXIF = 1;
    basket.settings.ImportIPTCFile = basket.path(text("gone.ffo"));
    basket.settings.ImportEXIFFile = text("  ");
    EXPECT_EQ(exifOf(resultOf(basket), "Artist"), text("Jo"));
    EXPECT_TRUE(basket.desktop.reports.empty());
}

TEST(BatchMetadata, ADateThatIsNoneInASideFileEndsTheRun) {
    TestBasket basket;
    basket.addPicture(text("a.jpg"));
    basket.settings.ImportEXIF = 1;
    basket.settings.ImportEXIFFile = basket.path(text("side.xiff"));
    writeFileSafely(basket.settings.ImportEXIFFile, "\"DateTime\",\"some day\"\r\n");
    EXPECT_FALSE(basket.run());
    EXPECT_TRUE(basket.desktop.reports.at(0).ErrSystem.startsWith(text("13 - ")));
    EXPECT_EQ(basket.files(text("out")), "");
}

TEST(BatchMetadata, ExifIptcAndProfilesOfRealPicturesAreKept) {
    TARSEL_REQUIRE_CORPUS();
    int compared = 0;
    for (const CorpusPicture& picture : corpusPictures()) {
        const bool fits = picture.fact("state") == text("valid") &&
                          picture.fact("category") != text("meta-damaged") &&
                          picture.path.endsWith(text(".jpg")) && picture.number("bytes") < 3'000'000 &&
                          picture.number("n_exif") > 0;
        if (!fits || compared >= 60)
            continue;
        ++compared;
        SCOPED_TRACE(picture.path.toStdString());
        TestBasket basket;
        basket.addRow(picture.path, text("result"));
        const ImageBox source = loaded(picture.path);
        const ImageBox result = resultOf(basket);
        const bool hadSoftware = !exifOf(source, "Software").isEmpty();
        EXPECT_EQ(result.ExifCount(), source.ExifCount() + (hadSoftware ? 0 : 1));
        EXPECT_EQ(exifOf(result, "DateTimeOriginal"), exifOf(source, "DateTimeOriginal"));
        EXPECT_EQ(result.HasIptc(), source.HasIptc());
        EXPECT_EQ(iptcList(result.metadata(), "IptcKeyword"), iptcList(source.metadata(), "IptcKeyword"));
        EXPECT_EQ(result.metadata().blocks().iccProfile, source.metadata().blocks().iccProfile);
    }
    EXPECT_GT(compared, 10) << "too few pictures with EXIF data in the corpus";
}
