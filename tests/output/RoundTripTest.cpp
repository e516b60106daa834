// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "codecs/KeptReductions.h"
#include "codecs/PictureFile.h"
#include "imaging/SaveFormats.h"
#include "output/LiveRoundTrip.h"
#include "output/RoundTripFacts.h"
#include "pixels/ColorReduction.h"
#include "tests/support/TestPictures.h"

#include <QColorSpace>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace tarsel::test {

namespace {

int formatOf(const char* name) {
    return int(findSaveFormat(QLatin1String(name)) - saveFormats().data());
}

RoundTripSettings jpegOf(int quality) {
    settings::SaveAdvanced settings;
    settings.JpgQuality = qint16(quality);
    return roundTripSettings(settings);
}

/// A round trip that a test follows, and where its files stay.
struct Followed {
    explicit Followed(const Picture& picture) : live({picture, {}}, folder.path()) {
        QObject::connect(&live, &LiveRoundTrip::finished,
                         [this] { finished.push_back(live.result()->settings.save.JpegQuality); });
        QObject::connect(&live, &LiveRoundTrip::pictureReady, [this] {
            ++pictures;
            live.pictureSeen();
        });
        QObject::connect(&live, &LiveRoundTrip::failed, [this] { ++failures; });
    }
    void want(int quality, LiveRoundTrip::Change change = LiveRoundTrip::Change::AtOnce) {
        live.want(jpegOf(quality), {true, {300, 200}, {}}, change);
    }
    bool settle() {
        return QTest::qWaitFor([this] { return !live.isBusy(); }, 60000);
    }

    QTemporaryDir folder;
    LiveRoundTrip live;
    std::vector<int> finished;
    int pictures = 0;
    int failures = 0;
};

} // namespace

TEST(RoundTrip, ShowsThePixelsOfTheFileInEachFormatAndEachEntryOfItsColors) {
    // The indexes of the lists as values of ColorFormat.
    const std::map<std::string, std::vector<int>> values{{"BMP", {0, 1, 2, 3, 4, 5, 6}},
                                                         {"GIF", {1, 2, 3, 4, 5, 6}},
                                                         {"JPG", {0, 2}},
                                                         {"PCX", {0, 1, 2, 3, 4, 5, 6}},
                                                         {"PNG", {0, 1}},
                                                         {"WBMP", {6}},
                                                         {"PSD", {0}},
                                                         {"TIF", {0, 1, 2, 3, 4, 5, 6}},
                                                         {"PDF", {0, 1, 2, 3, 4, 5, 6}}};
    const QTemporaryDir folder;
    const RoundTripSource source{noisePicture(61, 43, 3), {}};
    for (int format = 0; format < int(saveFormats().size()); ++format) {
        const SaveFormat& saved = saveFormats()[std::size_t(format)];
        std::vector<int> found;
        for (int entry = 0; entry < int(saved.colors.size()); ++entry) {
            settings::SaveAdvanced record{.Format = qint16(format)};
            rememberColors(record, format, entry);
            const RoundTripResult result = roundTrip(source, roundTripSettings(record));
            found.push_back(result.settings.save.ColorFormat);
            const QString file = folder.filePath(QLatin1String("a.") + QLatin1String(saved.extension));
            writeFileSafely(file, result.bytes);
            EXPECT_EQ(QFileInfo(file).size(), result.bytes.size());
            if (result.decoded.isNull())
                EXPECT_STREQ(saved.name, "PDF");
            else
                EXPECT_TRUE(PictureFile(file).decode().picture == result.decoded) << saved.name << entry;
        }
        EXPECT_EQ(found, values.at(saved.name)) << saved.name;
    }
}

TEST(RoundTrip, TakesDamagedRecords) {
    const settings::SaveAdvanced record{.Format = 99, .BmpColorFormat = 77, .JpgQuality = 900};
    EXPECT_EQ(roundTripSettings(record), jpegOf(100));
    EXPECT_EQ(rememberedColors(record, formatOf("bmp")), 0);
}

TEST(RoundTrip, FinishesWithTheNewestOptionsOnlyAndGoesBackAtOnce) {
    Followed trip(noisePicture(1700, 1000, 3));
    for (const int quality : {10, 20, 30})
        trip.want(quality);
    ASSERT_TRUE(trip.settle());
    EXPECT_EQ(trip.finished, std::vector<int>{30});
    trip.want(40);
    ASSERT_TRUE(trip.settle());
    trip.want(30);
    EXPECT_FALSE(trip.live.isBusy()) << "it was kept";
    EXPECT_EQ(trip.finished.back(), 30);
    const QByteArray bytes = trip.live.result()->bytes;
    EXPECT_TRUE(QTest::qWaitFor([&] {
        const QFileInfo left(trip.folder.filePath(QStringLiteral("temp.jpg")));
        return left.exists() && readWholeFile(left.filePath()) == bytes;
    }));
}

TEST(RoundTrip, ShowsSomethingOfALargePictureForEachStepOfADraggedSlider) {
    Followed trip(noisePicture(1700, 1000, 3));
    trip.want(10);
    ASSERT_TRUE(QTest::qWaitFor([&] { return trip.pictures > 0; }, 20000)) << "the part before the file";
    for (int quality = 11; quality <= 60; ++quality) {
        trip.want(quality, LiveRoundTrip::Change::Dragged);
        QCoreApplication::processEvents();
    }
    ASSERT_TRUE(trip.settle());
    EXPECT_EQ(trip.finished.back(), 60);
    EXPECT_GE(trip.pictures, 3);
    trip.live.want({formatOf("wbmp"), {.ColorFormat = 99}}, {}, LiveRoundTrip::Change::AtOnce);
    ASSERT_TRUE(trip.settle());
    EXPECT_EQ(trip.failures, 1);
    EXPECT_EQ(trip.live.result(), nullptr);
}

TEST(RoundTrip, CutsThePartOnShowAlongTheBlocksOfTheFile) {
    const Picture picture = noisePicture(1700, 1000, 3);
    const QRect seen(101, 57, 400, 300);
    EXPECT_EQ(blocksAround(seen, {0, 0, 1700, 1000}), QRect(96, 48, 416, 320));
    EXPECT_EQ(blocksAround({1690, 990, 50, 50}, {0, 0, 1700, 1000}), QRect(1680, 976, 20, 24));
    VisiblePart part;
    const auto shown = part.roundTrip({picture, {}}, jpegOf(50), {false, {400, 300}, seen});
    ASSERT_TRUE(shown);
    const Picture complete = roundTrip({picture, {}}, jpegOf(50)).decoded;
    for (const Place at : {Place{110, 60}, Place{300, 200}, Place{490, 350}})
        EXPECT_EQ(colorAt(shown->picture, at.x, at.y), colorAt(complete, at.x, at.y));
    EXPECT_EQ(colorAt(shown->picture, 1000, 800), (Rgb{128, 128, 128})) << "nothing that isn't of the file";
}

TEST(RoundTrip, MakesThePartThatIsScrolledToBeforeTheFile) {
    const Picture picture = noisePicture(1700, 1000, 3);
    Followed trip(picture);
    std::vector<Rgb> seen;
    QObject::connect(&trip.live, &LiveRoundTrip::pictureReady,
                     [&](const PreviewPicture& shown) { seen.push_back(colorAt(shown.picture, 1600, 900)); });
    const RoundTripSettings gif{formatOf("gif"), {.ColorFormat = int(ColorFormat::Colors256)}};
    trip.live.want(gif, {false, {200, 100}, {0, 0, 200, 100}}, LiveRoundTrip::Change::AtOnce);
    trip.live.show({false, {200, 100}, {1500, 850, 200, 100}});
    ASSERT_TRUE(trip.settle());
    ASSERT_EQ(seen.size(), 2U) << "not the part that is out of sight";
    EXPECT_NE(seen[0], (Rgb{128, 128, 128}));
}

TEST(RoundTrip, MakesTheSameFilesWithKeptReductions) {
    KeptReductions kept;
    for (const unsigned seed : {1U, 2U, 1U})
        for (const bool isTransparent : {false, true})
            for (const int colors : {0, 1, 3, 0}) {
                const settings::SaveAdvanced record{.Format = qint16(formatOf("gif")),
                                                    .GifTransparent = isTransparent,
                                                    .GifColorFormat = colors};
                const RoundTripSource source{noisePicture(40, 30, 4, seed), {}};
                const QByteArray bytes = roundTrip(source, roundTripSettings(record)).bytes;
                const KeptReductionsScope scope(kept);
                EXPECT_EQ(roundTrip(source, roundTripSettings(record)).bytes, bytes) << seed << colors;
            }
}

TEST(RoundTrip, RoundsKilobytesWithTiesToEven) {
    EXPECT_EQ(sizeInKilobytes(512), QStringLiteral("0 KB"));
    EXPECT_EQ(sizeInKilobytes(1536), QStringLiteral("2 KB"));
    EXPECT_EQ(sizeInKilobytes(2560), QStringLiteral("2 KB"));
}

TEST(RoundTrip, KeepsToASizeAndMeasuresHowLikeThePictureIs) {
    const RoundTripSource source{noisePicture(200, 150, 3), {}};
    settings::SaveAdvanced record{
        .JpgQuality = 95, .JpgLimited = 1, .JpgMostKilobytes = 12, .JpgLowestQuality = 5};
    const RoundTripResult limited = roundTrip(source, roundTripSettings(record));
    EXPECT_LE(limited.bytes.size(), 12 * 1024);
    EXPECT_GE(limited.bytes.size(), 12 * 1024 * 97 / 100);
    EXPECT_LT(limited.jpegQuality, 95);
    record.JpgLimited = 0;
    const RoundTripResult better = roundTrip(source, roundTripSettings(record));
    EXPECT_GT(similarityOf(source, better)->structural, similarityOf(source, limited)->structural);
    record.Format = qint16(formatOf("pdf"));
    const RoundTripResult document = roundTrip(source, roundTripSettings(record));
    EXPECT_FALSE(similarityOf(source, document));
    record.JpgQuality = 10;
    EXPECT_LT(roundTrip(source, roundTripSettings(record)).bytes.size(), document.bytes.size() / 2);
    RoundTripSource wide = source;
    wide.metadata.iccProfile = QColorSpace(QColorSpace::AdobeRgb).iccProfile();
    record.Format = qint16(formatOf("bmp")); // which holds no profile
    EXPECT_GT(similarityOf(wide, roundTrip(wide, roundTripSettings(record)))->peakSignalToNoise, 45);
}

TEST(RoundTrip, TakesTheOptionsOfItsOwnFormat) {
    settings::SaveAdvanced record{.TiffCompression = 2,
                                  .GifCompression = 0,
                                  .GifTransparent = 1,
                                  .GifTransparentColor = 0x123456,
                                  .JpgEncoding = 1};
    const auto saveOf = [&](const char* format) {
        record.Format = qint16(formatOf(format));
        return roundTripSettings(record).save;
    };
    EXPECT_TRUE(saveOf("jpg").JpegEncoding);
    EXPECT_EQ(saveOf("tif").TiffCompression, 2);
    EXPECT_EQ(saveOf("gif").BackColor, 0x123456);
    EXPECT_FALSE(saveOf("gif").GifCompression);
    EXPECT_FALSE(saveOf("png").BackColorTransparent);
}

TEST(RoundTripCache, LetsTheOldestGoButNeverTheNewest) {
    RoundTripCache cache(100, 3);
    const auto keep = [&](int quality, int bytes) {
        cache.keep({jpegOf(quality), QByteArray(bytes, 'x'), {}, {}});
    };
    for (const int quality : {1, 2, 3})
        keep(quality, 10);
    EXPECT_TRUE(cache.find(jpegOf(1))); // used, so that 2 is the oldest
    keep(4, 10);
    EXPECT_FALSE(cache.find(jpegOf(2)));
    EXPECT_TRUE(cache.find(jpegOf(1)));
    keep(5, 1000);
    EXPECT_TRUE(cache.find(jpegOf(5)));
    EXPECT_FALSE(cache.find(jpegOf(1)));
}

} // namespace tarsel::test
