// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/SizeBudget.h"
#include "codecs/JpegCodec.h"
#include "codecs/PictureFile.h"
#include "embedded/MetadataStore.h"
#include "tests/support/CodecTestFiles.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/TestPictures.h"

#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

TEST(SizeBudget, IsUsedUpByQualityAndBelowTheFloorBySize) {
    for (const Picture& picture : {photograph(320, 240), noisePicture(90, 130, 4)}) {
        const auto sizeAt = [&](int tableScale) {
            return encodeJpeg(picture, {.JpegTableScale = tableScale}, {}).size();
        };
        const qsizetype best = sizeAt(100), floor = sizeAt(1250); // qualities 95 and 40
        for (const double part : {0.3, 0.9, 0.99}) {
            const qint64 bytes = qint64(part * double(best));
            SCOPED_TRACE(bytes);
            const BudgetedJpeg file =
                jpegWithin({.bytes = bytes, .mayShrink = true}, picture, {.JpegQuality = 95}, {});
            EXPECT_LE(file.bytes.size(), bytes);
            EXPECT_GE(double(file.bytes.size()), 0.97 * double(bytes));
            EXPECT_EQ(encodeJpeg(file.picture, file.settings, {}), file.bytes);
            EXPECT_GE(file.quality(), SizeBudget::usualLowestQuality);
            EXPECT_EQ(file.picture == picture, bytes > floor);
            EXPECT_NEAR(double(file.picture.width()) / file.picture.height(),
                        double(picture.width()) / picture.height(), 0.02);
        }
    }
}

TEST(SizeBudget, TheBestQualityThatIsSmallEnoughIsKept) {
    const Picture picture = photograph(64, 48);
    const BudgetedJpeg best = jpegWithin({.bytes = 1'000'000}, picture, {.JpegQuality = 70}, {});
    EXPECT_EQ(best.quality(), 70);
    const qint64 tooFew = best.bytes.size() - 1;
    EXPECT_LE(jpegWithin({.bytes = tooFew}, picture, {.JpegQuality = 70}, {}).bytes.size(), tooFew);
    EXPECT_EQ(jpegWithin({.bytes = 1'000'000}, picture, {.JpegQuality = 100}, {}).quality(), 100);
}

TEST(SizeBudget, TheMetadataOfASmallerPictureStateItsSize) {
    MetadataStore metadata;
    ASSERT_TRUE(metadata.ExifSet(QStringLiteral("PixelXDimension"), QStringLiteral("320")));
    const BudgetedJpeg file =
        jpegWithin({.bytes = 3000, .mayShrink = true}, photograph(320, 240), {}, metadata.blocks());
    const MetadataStore saved(PictureFile(file.bytes, QStringLiteral("a.jpg")).metadata());
    EXPECT_EQ(saved.ExifValueByName(QStringLiteral("PixelXDimension")),
              QString::number(file.picture.width()));
    EXPECT_LT(file.picture.width(), 320);
    EXPECT_FALSE(saved.HasExif(QStringLiteral("PixelYDimension"))) << "nothing is added";
}

TEST(SizeBudget, NothingThatFitsIsAnErrorWithTheFact) {
    const Picture picture = photograph(64, 48);
    const auto search = [&](const SizeBudget& budget) { jpegWithin(budget, picture, {}, {}); };
    EXPECT_EQ(errorNumberOf([&] { search({.bytes = 300}); }), ErrorNumber::InvalidCall);
    EXPECT_EQ(errorNumberOf([&] { search({.bytes = 100, .mayShrink = true}); }), ErrorNumber::InvalidCall);
}

} // namespace
