// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/CachedThumbnails.h"
#include "codecs/PictureFile.h"
#include "codecs/PngTexts.h"
#include "imaging/ImageBox.h"
#include "tests/support/MadePictures.h"
#include "tests/support/Metafiles.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace tarsel::test {

namespace {

constexpr Size box{40, 30};
constexpr QRgb red = qRgb(200, 20, 20), green = qRgb(20, 200, 20);

class CachedThumbnailsTest : public testing::Test {
protected:
    CachedThumbnailsTest() { makePhoto(); }

    QString path(const char* name) const { return home.filePath(QString::fromUtf8(name)); }

    void makePhoto() const {
        makePicture(photo, {800, 400}, red);
        setTime();
    }
    void setTime(int second = 0) const {
        QFile changed(photo);
        ASSERT_TRUE(changed.open(QIODevice::ReadWrite));
        ASSERT_TRUE(changed.setFileTime(QDateTime({2003, 2, 1}, {4, 5, second}, Qt::UTC),
                                        QFile::FileModificationTime));
    }
    /// Its size and time stay.
    void exchangeBytesOfPhoto(const QByteArray& bytes) const {
        writeBytes(photo, bytes.leftJustified(QFileInfo(photo).size(), ' ', true));
        setTime();
    }
    QByteArray uri() const { return "file://" + QFile::encodeName(photo).toPercentEncoding("/"); }
    QString kept(const char* folder) const {
        const QByteArray sum = QCryptographicHash::hash(uri(), QCryptographicHash::Md5).toHex();
        return QStringLiteral("%1/%2/%3.png").arg(store, QLatin1String(folder), QLatin1String(sum));
    }
    std::optional<Thumbnail> read(const QString& file) { return reader(file, box, false); }
    QRgb colorOfPhoto() {
        const std::optional<Thumbnail> thumbnail = read(photo);
        const std::uint8_t none[3] = {};
        const auto* pixel = thumbnail ? thumbnail->picture.view().pixel(box.width / 2, box.height / 2) : none;
        return qRgb(pixel[0], pixel[1], pixel[2]);
    }

    QTemporaryDir home;
    QString store = path("cache/thumbnails");
    QString photo = path("a b;#é.png");
    ThumbnailReader reader = cachedThumbnails(store, path("program"));
};

} // namespace

TEST_F(CachedThumbnailsTest, ASecondVisitDecodesNothingUntilTheFileChanges) {
    const auto first = read(photo);
    constexpr int ofOthers = 0x77;
    for (const QString& own : {store, kept("normal")})
        EXPECT_TRUE(QFile::exists(own) && (QFile::permissions(own) & ofOthers) == 0) << own.toStdString();
    exchangeBytesOfPhoto("no picture any more");
    const auto second = read(photo);
    ASSERT_TRUE(first && second);
    EXPECT_TRUE(second->picture == first->picture);
    EXPECT_EQ(second->sourceSize, (Size{800, 400}));
    setTime(7);
    EXPECT_FALSE(read(photo)) << "changed since";
}

TEST_F(CachedThumbnailsTest, AThumbnailOfAnotherProgramIsUsedAndAFalseOneMadeAgain) {
    const PngTexts right{{"Thumb::URI", uri()}, {"Thumb::MTime", "1044072300"}};
    const struct {
        const char* name;
        const char* folder;
        QSize size;
        bool isUsed;
        std::pair<const char*, const char*> text = {"Software", "another"};
        qint64 bytes = 1 << 20;
    } cases[] = {
        {"as usual", "normal", {128, 64}, true},
        {"larger than needed", "x-large", {512, 256}, true},
        {"false size", "normal", {128, 64}, true, {"Thumb::Image::Width", "-5"}},
        {"another file", "normal", {128, 64}, false, {"Thumb::URI", "file:///etc/passwd"}},
        {"earlier state", "normal", {128, 64}, false, {"Thumb::MTime", "12"}},
        {"other length", "normal", {128, 64}, false, {"Thumb::Size", "12"}},
        {"cropped", "normal", {128, 128}, false},
        {"too small", "normal", {16, 8}, false},
        {"larger than its folder allows", "normal", {600, 300}, false},
        {"cut", "normal", {128, 64}, false, {"Software", "another"}, 250},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        makePhoto();
        makePicture(path("green.png"), each.size, green);
        PngTexts texts = right;
        texts[each.text.first] = each.text.second;
        QDir(store).removeRecursively();
        QDir().mkpath(QFileInfo(kept(each.folder)).path());
        const Picture picture = PictureFile(path("green.png")).decode().picture;
        writeBytes(kept(each.folder), encodePngWithTexts(picture, texts).left(each.bytes));
        EXPECT_EQ(colorOfPhoto(), each.isUsed ? green : red);
        if (each.isUsed)
            continue;
        exchangeBytesOfPhoto({});
        EXPECT_EQ(colorOfPhoto(), red) << "made again, and kept";
    }
}

TEST_F(CachedThumbnailsTest, WhatIsSmallPrivateOrNotWritableCostsNoFile) {
    QDir().mkpath(path("program"));
    makePicture(path("icon.png"), {30, 30});
    makePicture(path("program/page.png"), {800, 400});
    EXPECT_TRUE(read(path("icon.png")) && read(path("program/page.png")));
    EXPECT_FALSE(QFile::exists(store));
    QFile::link(path("nowhere"), path("link"));
    EXPECT_TRUE(cachedThumbnails(path("link"), path("program"))(photo, box, false));
    writeBytes(path("cache"), "a file in the place of the folder");
    EXPECT_TRUE(read(photo) && read(photo));
    EXPECT_TRUE(cachedThumbnails(home.path(), path("program"))(photo, box, false));
    EXPECT_FALSE(QFile::exists(path("normal"))) << "of a file in the folder of thumbnails";
}

TEST_F(CachedThumbnailsTest, APictureThatCannotBeReadIsNotTriedAgainUntilItChanges) {
    const QByteArray intact = PictureSource::ofFile(photo).all();
    exchangeBytesOfPhoto(intact.left(intact.indexOf("IDAT") + 4));
    EXPECT_FALSE(read(photo));
    exchangeBytesOfPhoto(intact);
    EXPECT_FALSE(read(photo)) << kept("fail/tarsel-jpeg").toStdString();
    setTime(7);
    EXPECT_TRUE(read(photo));

    const QByteArray decoder = qgetenv("TARSEL_DECODER");
    photo = path("drawing.wmf");
    writeBytes(photo, wmf(redLeftHalf()));
    for (const char* lost : {"/bin/false", "/nowhere"}) {
        qputenv("TARSEL_DECODER", lost);
        EXPECT_FALSE(read(photo));
        EXPECT_FALSE(QFile::exists(kept("fail/tarsel-jpeg"))) << "proves nothing: " << lost;
    }
    decoder.isNull() ? qunsetenv("TARSEL_DECODER") : qputenv("TARSEL_DECODER", decoder);
}

TEST_F(CachedThumbnailsTest, AKeptThumbnailIsTurnedAsThePictureIs) {
    constexpr Size even{45, 30}; // leaves as much white on either side
    Picture drawn = PictureFile(photo).decode().picture;
    for (int y = 0; y < 100; ++y)
        std::fill_n(drawn.edit().row(y), 3 * 200, std::uint8_t(0));
    for (int orientation = 1; orientation <= 8; ++orientation) {
        const QString file = path("o%1.jpg").arg(orientation);
        ImageBox marked;
        marked.LoadFromMemory(drawn, 7);
        marked.SaveToFile(file);
        marked.LoadFromFile(file);
        ASSERT_TRUE(marked.ExifSet(QStringLiteral("Orientation"), QString::number(orientation)));
        marked.SaveToFile(file);
        for (const bool upright : {true, false, true}) {
            const auto direct = loadThumbnail(file, even, upright), cached = reader(file, even, upright);
            const auto stored = storedPictures(store)(PictureFile(file), upright);
            ASSERT_TRUE(direct && cached && stored && cached->sourceSize == direct->sourceSize);
            EXPECT_EQ(stored->size, upright && orientation > 4 ? (Size{400, 800}) : (Size{800, 400}));
            for (const Picture& seen :
                 {cached->picture, ScalePicture(stored->picture, LoadMode::ExactBox, even)}) {
                long difference = 0;
                for (int y = 0; y < even.height; ++y)
                    for (int x = 0; x < 3 * even.width; ++x)
                        difference += std::abs(direct->picture.view().row(y)[x] - seen.view().row(y)[x]);
                EXPECT_LT(difference, 3 * even.width * even.height * 8) << orientation << upright;
            }
        }
    }
}

} // namespace tarsel::test
