// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/PictureFile.h"
#include "base/SafeFileWriter.h"
#include "base/Stop.h"
#include "base/TrappedError.h"
#include "imaging/ImageBox.h"
#include "imaging/Upright.h"
#include "tests/support/CodecTestFiles.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/TestPictures.h"

#include <QFile>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

namespace tarsel {
namespace {

class PictureFiles : public testing::Test {
protected:
    /// A sparse file that starts with `bytes`: more of it than may be read at once.
    QString hugeFile(const char* name, const QByteArray& bytes) const {
        const QString path = m_folder.filePath(QString::fromLatin1(name));
        writeFileSafely(path, bytes);
        EXPECT_TRUE(QFile::resize(path, qint64(5) << 30));
        return path;
    }

    static QByteArray encoded(const char* extension) {
        return test::encoded(extension, test::noisePicture(31, 17, 3), {}, test::everyKindOfMetadata());
    }

    QTemporaryDir m_folder;
};

TEST_F(PictureFiles, aHugeFileIsReadOnlyWhereItsPictureIs) {
    for (const char* extension : {"tif", "png", "bmp"}) {
        SCOPED_TRACE(extension);
        const PictureFile file(hugeFile(extension, encoded(extension)));
        EXPECT_EQ(file.header().width, 31);
        EXPECT_EQ(file.pageCount(), 1);
        EXPECT_EQ(file.metadata().xmp.isEmpty(), QLatin1String(extension) == QLatin1String("bmp"));
        EXPECT_TRUE(file.decode().picture == test::noisePicture(31, 17, 3));
    }
}

TEST_F(PictureFiles, aHugeFileIsRefusedWhereAllOfItWouldBeReadOrItIsNotAPicture) {
    const PictureFile picture(hugeFile("huge.jpg", encoded("jpg")));
    EXPECT_EQ(picture.header().width, 31);
    const PictureFile other(hugeFile("huge.tif", QByteArray(10, 0)));
    EXPECT_FALSE(other.isRecognised());
    for (const PictureFile& file : {picture, other})
        EXPECT_EQ(test::errorNumberOf([&] { file.decode(); }), ErrorNumber::UnreadableFile);
}

TEST_F(PictureFiles, aStopEndsEveryQuestion) {
    std::stop_source stopped;
    stopped.request_stop();
    const std::stop_token stop = stopped.get_token();
    const QString path = m_folder.filePath(QStringLiteral("a.tif"));
    writeFileSafely(path, encoded("tif"));
    const PictureFile file(path);
    const std::function<void()> questions[] = {
        [&] { file.header(stop); },
        [&] { file.pageCount(stop); },
        [&] { file.metadata(1, stop); },
        [&] { file.decode(1, stop); },
        [&] { file.decodeReduced([](PixelSize size) { return size; }, stop); },
        [&] { ImageBox::PageCount(path, stop); },
        [&] { fileOrientation(path, stop); }};
    for (const auto& question : questions)
        EXPECT_EQ(test::errorNumberOf(question), ErrorNumber::Interrupted);
}

TEST_F(PictureFiles, aStopEndsTheRowsOfEveryFormat) {
    std::stop_source stopped;
    stopped.request_stop();
    for (const char* extension : {"jpg", "png", "bmp", "gif", "psd", "pcx", "tif", "wbmp"}) {
        const PictureSource source = encoded(extension);
        const Codec* codec = codecForExtension(QLatin1String(extension));
        codec->pageCount(source, {}); // pages are found once, which a stop ends too
        const StopScope scope(stopped.get_token());
        EXPECT_EQ(test::errorNumberOf([&] { codec->decode(source, {}, 1); }), ErrorNumber::Interrupted)
            << extension;
    }
    const StopScope scope(stopped.get_token());
    for (const char* extension : {"jpg", "png", "psd", "tif", "bmp", "gif", "pcx", "wbmp"})
        EXPECT_EQ(test::errorNumberOf([&] { encoded(extension); }), ErrorNumber::Interrupted) << extension;
}

TEST_F(PictureFiles, aFileThatShrinksWhileItIsOpenIsDamagedAndNoCrash) {
    const QString path = m_folder.filePath(QStringLiteral("shrinking.tif"));
    writeFileSafely(path, encoded("tif"));
    const PictureFile file(path);
    EXPECT_EQ(file.header().height, 17);
    ASSERT_TRUE(QFile::resize(path, 100));
    EXPECT_EQ(file.pageCount(), 1) << "where the pages are is found out once";
    EXPECT_EQ(test::errorNumberOf([&] { file.decode(); }), ErrorNumber::UnreadableFile);
}

TEST_F(PictureFiles, aPhonePictureOfEitherExtensionOpens) {
    const QByteArray bytes("\0\0\x08\x01\xAA", 5);
    for (const char* name : {"a.wbmp", "a.wbm", "A.WBM"})
        EXPECT_EQ(PictureFile(bytes, QLatin1String(name)).decode().picture.width(), 8) << name;
    EXPECT_FALSE(PictureFile(bytes, QStringLiteral("a.txt")).isRecognised());
}

} // namespace
} // namespace tarsel
