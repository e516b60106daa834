// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FileStamp.h"
#include "base/TrappedError.h"
#include "collections/clsFileInfo.h"
#include "tests/support/MadePictures.h"
#include "tests/support/TestDesktop.h"

#include <QFile>
#include <QLocale>
#include <QScopeGuard>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <tuple>

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

TEST(FileSize, HasTheUsersNumbersInListsAndEnglishOnesInNames) {
    const auto restore = qScopeGuard([] { QLocale::setDefault(QLocale::c()); });
    QLocale::setDefault(QLocale(QStringLiteral("de_DE")));
    EXPECT_EQ(clsFileInfo::sizeText(1234567, true).toStdString(), "1,18MB (1.234.567 bytes)");
    EXPECT_EQ(clsFileInfo::englishSizeText(1234567, true).toStdString(), "1.18MB (1,234,567 bytes)");
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
    const std::tuple<const char*, int, const char*> cases[] = {{"a.jpg", 1, "2.00KB"},
                                                               {"a.jpg", 1, "2.00KB"},
                                                               {"b.jpg", 0, "2.00KB (2,048 bytes)"},
                                                               {"c.jpg", 0, "2.00KB"}};
    for (const auto& [name, flag, text] : cases) {
        const QString path = made(name, QByteArray(2048, 'x'));
        if (info.FilePath() != path)
            info.setFilePath(path);
        EXPECT_EQ(info.fSizeFormated(flag).toStdString(), text) << name;
    }
    const QString huge = made("huge.tif");
    if (!QFile::resize(huge, 5'000'000'000))
        GTEST_SKIP() << "no room for a sparse file";
    info.setFilePath(huge);
    EXPECT_EQ(info.fSize(), 2147483647) << "more than 32 bits hold";
    EXPECT_EQ(info.fSizeFormated(0).toStdString(), "2.00GB");
}

TEST_F(FileInfoTest, NamesKeepTheirSpellingAndAMissingFileLeavesTheFactsOfTheOneBefore) {
    const struct {
        const char* name;
        const char* extension;
        const char* type; ///< empty when the system names it
    } cases[] = {{"Summer.2004.JPeG", "JPeG", ""}, {"README", "", ""}, {"a.qzx", "qzx", "QZX File"}};
    for (const auto& c : cases) {
        const QString path = made(c.name);
        info.setFilePath(path);
        for (const QString& other : {folder.filePath(QStringLiteral("gone.png")), folder.path(), QString()}) {
            info.setFilePath(other);
            EXPECT_EQ(info.FilePath(), path);
            EXPECT_EQ(info.fName32bit().toStdString(), c.name);
        }
        EXPECT_EQ(info.fFileExtention().toStdString(), c.extension);
        EXPECT_EQ(info.fLocation(), folder.path() + QLatin1Char('/'));
        if (*c.type != 0) {
            EXPECT_EQ(info.fType().toStdString(), c.type);
        }
    }
    for (const char* name : {"a.jpg", "b.JPG"}) {
        info.setFilePath(made(name));
        EXPECT_TRUE(info.fType().contains(QStringLiteral("JPEG"))) << info.fType().toStdString();
    }
}

TEST_F(FileInfoTest, APipeIsNoFileAndDoesNotBlock) {
    const QString path = folder.filePath(QStringLiteral("pipe.jpg"));
    ASSERT_EQ(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    EXPECT_FALSE(clsFileInfo::CheckIfFileExists(path));
}

TEST(FileSystemHelpers, TakePathsApartAtTheLastPointAndSeparator) {
    const struct {
        const char* path;
        const char* extension;
        const char* title;
        const char* folder;
    } cases[] = {{"/a.b/c.tar.gz", "gz", "/a.b/c.tar", "/a.b/"},
                 {"/a.b/c", "", "/a.b/c", "/a.b/"},
                 {"c", "", "c", ""}};
    for (const auto& c : cases) {
        const QString path = QLatin1String(c.path);
        EXPECT_EQ(modFileSystem::GetFileExtension(path).toStdString(), c.extension) << c.path;
        EXPECT_EQ(modFileSystem::GetFileTitle(path).toStdString(), c.title) << c.path;
        EXPECT_EQ(modFileSystem::GetFolderPart(path).toStdString(), c.folder) << c.path;
    }
}

TEST(FileSystemHelpers, AFolderIsMadeWithThoseAboveItAndMayBeThere) {
    QTemporaryDir folder;
    const QString deep = folder.filePath(QStringLiteral("a/b/c/"));
    for (int time = 0; time < 2; ++time)
        modFileSystem::MakeFolder(deep);
    EXPECT_TRUE(modFileSystem::FolderExists(deep));
    EXPECT_TRUE(modFileSystem::FileExistsByDir(QStringLiteral("  ") + deep));
    EXPECT_FALSE(modFileSystem::FileExistsByDir(QStringLiteral("  ")));
    writeBytes(folder.filePath(QStringLiteral("file")), "x");
    EXPECT_FALSE(modFileSystem::FolderExists(folder.filePath(QStringLiteral("file"))));
    ASSERT_TRUE(
        QFile::link(folder.filePath(QStringLiteral("gone")), folder.filePath(QStringLiteral("link"))));
    const QString file = folder.filePath(QStringLiteral("file"));
    const QString link = folder.filePath(QStringLiteral("link"));
    const QString noPlace = QStringLiteral("/proc/self/fdinfo");
    const std::tuple<QString, QString> cases[] = {
        {file, file + QStringLiteral(" is a file")},
        {file + QStringLiteral("/a/b"), file + QStringLiteral(" is a file")},
        {link, link + QStringLiteral(" is a link to nothing")},
        {noPlace + QStringLiteral("/a/b"), noPlace + QStringLiteral(": ")}};
    for (const auto& [path, fact] : cases)
        try {
            modFileSystem::MakeFolder(path);
            ADD_FAILURE() << path.toStdString();
        } catch (const TrappedError& error) {
            EXPECT_TRUE(error.description.contains(path)) << error.description.toStdString();
            EXPECT_TRUE(error.description.contains(fact)) << error.description.toStdString();
        }
}

TEST(FileStamp, ChangesWithAFileThatIsWrittenInPlace) {
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.jpg"));
    writeBytes(path, "abc");
    const FileStamp first = FileStamp::of(path);
    EXPECT_TRUE(first == FileStamp::of(path));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(file.fileTime(QFile::FileModificationTime).addSecs(-9),
                                 QFile::FileModificationTime));
    const FileStamp second = FileStamp::of(path);
    EXPECT_FALSE(first == second) << "of another time";
    ASSERT_TRUE(file.resize(2));
    ASSERT_TRUE(file.setFileTime(file.fileTime(QFile::FileModificationTime).addSecs(-9),
                                 QFile::FileModificationTime));
    EXPECT_FALSE(second == FileStamp::of(path)) << "of another size";
}
