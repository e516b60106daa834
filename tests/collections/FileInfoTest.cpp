// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/TrappedError.h"
#include "collections/clsFileInfo.h"
#include "tests/support/MadePictures.h"
#include "tests/support/TestDesktop.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace tarsel;
using namespace tarsel::test;

TEST(SizeText, ChangesItsUnitAtDecimalStepsOfKilobytes) {
    const struct {
        qint32 size;
        const char* shortText;
        const char* longText;
    } cases[] = {
        {-1, "0.0KB (0 bytes)", "0.0KB (0 bytes)"},
        {0, "0 bytes", "0 bytes"},
        {1, "1 bytes", "1 bytes"},
        {1023, "1,023 bytes", "1,023 bytes"},
        {1024, "1.00KB", "1.00KB (1,024 bytes)"},
        {10239, "10.00KB", "10.00KB (10,239 bytes)"},
        {10240, "10.0KB", "10.0KB (10,240 bytes)"},
        {1023999, "1000.0KB", "1000.0KB (1,023,999 bytes)"},
        {1024000, "0.98MB", "0.98MB (1,024,000 bytes)"},
        {10239999, "9.77MB", "9.77MB (10,239,999 bytes)"},
        {10240000, "9.8MB", "9.8MB (10,240,000 bytes)"},
        {1023999999, "976.6MB", "976.6MB (1,023,999,999 bytes)"},
        {1024000000, "0.95GB", "0.95GB (1,024,000,000 bytes)"},
        {2147483647, "2.00GB", "2.00GB (2,147,483,647 bytes)"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(clsFileInfo::sizeText(c.size, false).toStdString(), c.shortText) << c.size;
        EXPECT_EQ(clsFileInfo::sizeText(c.size, true).toStdString(), c.longText) << c.size;
    }
}

namespace {

class FileInfoTest : public testing::Test {
protected:
    QString made(const char* name, const QByteArray& bytes = "x") const {
        const QString path = folder.filePath(QString::fromUtf8(name));
        writeBytes(path, bytes);
        return path;
    }

    TestDesktop desktop;
    QTemporaryDir folder;
    clsFileInfo info;
};

} // namespace

TEST_F(FileInfoTest, TheFlagOfASizeRulesTheTextOfTheNextFile) {
    info.setFilePath(made("a.jpg", QByteArray(2048, 'x')));
    EXPECT_EQ(info.fSizeFormated(1).toStdString(), "2.00KB");
    EXPECT_EQ(info.fSizeFormated(1).toStdString(), "2.00KB");
    info.setFilePath(made("b.jpg", QByteArray(2048, 'x')));
    EXPECT_EQ(info.fSizeFormated(0).toStdString(), "2.00KB (2,048 bytes)");
    info.setFilePath(made("c.jpg", QByteArray(2048, 'x')));
    EXPECT_EQ(info.fSizeFormated(0).toStdString(), "2.00KB");
}

TEST_F(FileInfoTest, AMissingFileLeavesTheFactsOfTheOneBefore) {
    const QString path = made("a.jpg");
    info.setFilePath(path);
    for (const QString& other : {folder.filePath(QStringLiteral("gone.png")), folder.path(), QString()}) {
        info.setFilePath(other);
        EXPECT_EQ(info.FilePath(), path);
        EXPECT_EQ(info.fName32bit(), QStringLiteral("a.jpg"));
    }
}

TEST_F(FileInfoTest, NameAndExtensionKeepTheirSpelling) {
    info.setFilePath(made("Summer.2004.JPeG"));
    EXPECT_EQ(info.fFileExtention(), QStringLiteral("JPeG"));
    EXPECT_EQ(info.fName32bit(), QStringLiteral("Summer.2004.JPeG"));
    EXPECT_EQ(info.fLocation(), folder.path() + QLatin1Char('/'));
    info.setFilePath(made("README"));
    EXPECT_EQ(info.fFileExtention(), QString());
}

TEST_F(FileInfoTest, ATypeThatTheSystemDoesNotKnowIsNamedAfterTheExtension) {
    info.setFilePath(made("a.qzx"));
    EXPECT_EQ(info.fType().toStdString(), "QZX File");
    info.setFilePath(made("a.jpg"));
    const QString known = info.fType();
    EXPECT_TRUE(known.contains(QStringLiteral("JPEG"))) << known.toStdString();
    info.setFilePath(made("b.JPG"));
    EXPECT_EQ(info.fType(), known);
}

TEST_F(FileInfoTest, DatesAreShortDateBlankLongTime) {
    const QString path = made("a.jpg");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QDateTime noon(QDate(2004, 3, 7), QTime(15, 5, 9));
    ASSERT_TRUE(file.setFileTime(noon, QFileDevice::FileModificationTime));
    ASSERT_TRUE(file.setFileTime(noon.addDays(1), QFileDevice::FileAccessTime));
    file.close();
    info.setFilePath(path);
    EXPECT_EQ(info.fDateModified().toStdString(), "3/7/2004 3:05:09 PM");
    EXPECT_EQ(info.fDateAccessed().toStdString(), "3/8/2004 3:05:09 PM");
    EXPECT_TRUE(info.dateCreated().isValid());
}

TEST_F(FileInfoTest, ASizeBeyondThirtyTwoBitsIsShownAsTheLargestOne) {
    const QString path = made("huge.tif");
    if (!QFile::resize(path, 5'000'000'000))
        GTEST_SKIP() << "no room for a sparse file";
    info.setFilePath(path);
    EXPECT_EQ(info.fSize(), 2147483647);
    EXPECT_EQ(info.fSizeFormated(0).toStdString(), "2.00GB");
}

TEST_F(FileInfoTest, APipeIsNoFileAndDoesNotBlock) {
    const QString path = folder.filePath(QStringLiteral("pipe.jpg"));
    ASSERT_EQ(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    EXPECT_FALSE(clsFileInfo::CheckIfFileExists(path));
}

TEST(FileSystemHelpers, TakePathsApartAtTheLastPointAndSeparator) {
    using namespace modFileSystem;
    EXPECT_EQ(GetFileExtension(QStringLiteral("/a.b/c.tar.gz")), QStringLiteral("gz"));
    EXPECT_EQ(GetFileTitle(QStringLiteral("/a.b/c.tar.gz")), QStringLiteral("/a.b/c.tar"));
    EXPECT_EQ(GetFileExtension(QStringLiteral("/a.b/c")), QString());
    EXPECT_EQ(GetFileTitle(QStringLiteral("/a.b/c")), QStringLiteral("/a.b/c"));
    EXPECT_EQ(GetFolderPart(QStringLiteral("/a.b/c")), QStringLiteral("/a.b/"));
    EXPECT_EQ(GetFolderPart(QStringLiteral("c")), QString());
}

TEST(FileSystemHelpers, AFolderIsMadeWithThoseAboveItAndMayBeThere) {
    QTemporaryDir folder;
    const QString deep = folder.filePath(QStringLiteral("a/b/c/"));
    modFileSystem::MakeFolder(deep);
    modFileSystem::MakeFolder(deep);
    EXPECT_TRUE(modFileSystem::FolderExists(deep));
    EXPECT_TRUE(modFileSystem::FileExistsByDir(QStringLiteral("  ") + deep));
    EXPECT_FALSE(modFileSystem::FileExistsByDir(QStringLiteral("  ")));
    const QString file = folder.filePath(QStringLiteral("file"));
    writeBytes(file, "x");
    EXPECT_FALSE(modFileSystem::FolderExists(file));
    EXPECT_THROW(modFileSystem::MakeFolder(file + QStringLiteral("/below")), TrappedError);
}
