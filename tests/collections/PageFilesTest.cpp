// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/PageFiles.h"
#include "base/AcquiredFiles.h"
#include "base/SafeFileWriter.h"
#include "imaging/ImageBox.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/ForkedChild.h"
#include "tests/support/MadePictures.h"
#include "tests/support/TestDesktop.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <csignal>
#include <gtest/gtest.h>
#include <set>
#include <sys/syscall.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

const QString scan = QStringLiteral("scan.tif");

/// White with a black rule on every 40th row, some of it red on request.
Picture madePicture(int width, int height, bool colored) {
    Picture picture(width, height, 3);
    const PixelView view = picture.edit();
    for (int y = 0; y < height; ++y) {
        const bool rule = y % 40 == 0;
        std::fill_n(view.row(y), view.stride, std::uint8_t(rule ? 0 : 255));
        if (rule && colored)
            view.pixel(width / 2, y)[0] = 255;
    }
    return picture;
}

} // namespace

TEST(PageFiles, CarryNamePageAndRandomNumberAndNeverTakeANameThatIsUsed) {
    TestDesktop desktop;
    QTemporaryDir folder;
    const auto next = [&](AddedBy addedBy) {
        return newPageFile(folder.path(), addedBy, scan, 2, drawPageFileNumber())
            .mid(folder.path().size())
            .toStdString();
    };
    EXPECT_EQ(next(AddedBy::Button), "/Temp/scan.tif2_4999.tif");
    EXPECT_EQ(next(AddedBy::BasketFile), "/Temp/scan.tif2_5000.tif");
    EXPECT_EQ(next(AddedBy::Drag), "/Temp/scan2_4999.tif");
    desktop.random = 0.99999;
    EXPECT_EQ(next(AddedBy::Drag), "/Temp/scan2_9998.tif");
    std::set<std::string> names;
    for (int i = 0; i < 50; ++i) {
        const std::string name = next(AddedBy::Button);
        EXPECT_TRUE(names.insert(name).second) << name;
        const QString path = folder.path() + QString::fromStdString(name);
        if (i % 2) {
            ASSERT_TRUE(QFile::remove(path));
            ASSERT_TRUE(QFile::link(QStringLiteral("/nowhere/else.tif"), path));
        }
    }
}

TEST(PageFiles, AnAcquiredOneGoesOnlyWhenItsRowWentAndComesBackThoughTheReturnWasKilled) {
    QTemporaryDir folder;
    const QString temporary = temporaryFolder(folder.path());
    QDir().mkpath(temporary);
    const auto files = [](const QString& path) {
        return QDir(path).entryList({QStringLiteral("*.tif")}, QDir::Files).join(u' ').toStdString();
    };
    const QStringList acquired{temporary + QStringLiteral("1_5.tif"), temporary + QStringLiteral("2_6.tif")};
    acquiredFiles::list(acquired, false);
    for (const QString& path : acquired + QStringList(temporary + QStringLiteral("scan1_7.tif")))
        writeBytes(path, "x");
    const QString copies = setPageFilesAside(folder.path()).folder;
    EXPECT_EQ(files(copies), "scan1_7.tif");
    EXPECT_EQ(files(temporary), "1_5.tif 2_6.tif");

    int kills = 0;
    for (const int call : {SYS_rename, SYS_renameat2, SYS_linkat, SYS_rmdir}) {
        EXPECT_EQ(acquiredFiles::strike(temporary, acquired), acquired);
        const QString aside = setPageFilesAside(folder.path()).folder;
        EXPECT_EQ(files(aside), "1_5.tif 2_6.tif");
        kills += inChild([&] {
                     dieAtSystemCall(call);
                     returnPageFiles(aside, folder.path(), acquired);
                     return 0;
                 }) == -SIGSYS;
        deleteAllPageFilesSetAside(folder.path());
        EXPECT_EQ(files(temporary), "1_5.tif 2_6.tif") << call;
    }
    EXPECT_GE(kills, 2);
    EXPECT_FALSE(QDir(temporary + QStringLiteral("Undo")).exists());
    EXPECT_EQ(setPageFilesAside(folder.path()).folder, QString()) << "listed again";
}

TEST(PageFiles, WhatCantBeSetAsideOrReturnedIsDeletedByNobody) {
    reportFileSizeLimitAsError();
    QTemporaryDir folder;
    const QString temporary = temporaryFolder(folder.path()), undo = temporary + QStringLiteral("Undo");
    QDir().mkpath(temporary);
    const QString longest = QString(251, QLatin1Char('1')) + QStringLiteral(".tif");
    const QStringList acquired{temporary + longest, temporary + QStringLiteral("2_6.tif")};
    acquiredFiles::list(acquired, false);
    for (const QString& path : acquired)
        writeBytes(path, "x");
    const auto expectAll = [&] {
        EXPECT_EQ(setPageFilesAside(folder.path(), acquired).folder, QString());
        EXPECT_EQ(acquiredFiles::present(temporary), acquired);
    };
    writeBytes(undo, "not a folder");
    expectAll();
    QFile::remove(undo);
    {
        const FileSizeLimit full(1);
        expectAll();
    }
    const PageFilesAside aside = setPageFilesAside(folder.path(), acquired);
    EXPECT_EQ(aside.acquired, acquired);
    EXPECT_EQ(acquiredFiles::listed(temporary), QStringList());

    acquiredFiles::list(acquired, false); // and then the session was killed
    writeBytes(acquired[0], "another one, with a name that can't be made longer");
    for (int start = 0; start < 2; ++start) {
        deleteAllPageFilesSetAside(folder.path());
        tidyAcquiredFiles(folder.path());
        EXPECT_TRUE(QFile::exists(aside.folder + QLatin1Char('/') + longest));
        EXPECT_EQ(acquiredFiles::present(temporary), acquired);
    }
    ASSERT_TRUE(QFile::remove(acquired[0]));
    deleteAllPageFilesSetAside(folder.path());
    EXPECT_EQ(acquiredFiles::present(temporary), acquired);
    EXPECT_FALSE(QFile::exists(undo));
}

TEST(PageFiles, ABlackAndWhitePageStaysSmallAndEveryPageKeepsItsPixels) {
    QTemporaryDir folder;
    const QString path = folder.filePath(scan);
    ImageBox box;
    for (const bool colored : {false, true}) {
        const Picture page = madePicture(1240, 1754, colored);
        box.setPictureHandle(page);
        savePage(box, path);
        EXPECT_LT(QFileInfo(path).size(), colored ? 200'000 : 20'000);
        box.LoadFromFile(path);
        EXPECT_TRUE(box.picture() == page) << colored;
    }
    EXPECT_EQ(box.TiffCompression, 0) << "the page's compression is not the user's";
}
