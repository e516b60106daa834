// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/collections/CollectionWindow.h"

#include "base/ErrorSubject.h"
#include "base/TrappedError.h"
#include "collections/Thumbnail.h"

#include <QFile>
#include <semaphore>

#include <unistd.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {
class FolderViewTest : public CollectionWindow {};
} // namespace

TEST_F(FolderViewTest, ListsPicturesSortedWithoutRegardToCaseAndNothingElse) {
    for (const char* name : {"b.JPG", "A.jpeg", "c.Tiff", "photo.jpgold", "d.wbm", "notes.txt", "e.jp2",
                             ".hidden.jpg", "z.PSD", "jpg", "B.jpg"})
        writeBytes(picture(name), "x");
    QDir(pictures).mkpath(QStringLiteral("folder.jpg"));
    EXPECT_EQ(pictureFiles(pictures).join(QLatin1Char(' ')).toStdString(),
              "A.jpeg B.jpg b.JPG c.Tiff d.wbm photo.jpgold z.PSD");
}

TEST_F(FolderViewTest, ARowOfTheThumbnailViewShowsSizePagesAndDates) {
    makePicture(picture("wide.png"), {400, 100});
    {
        QFile file(picture("wide.png"));
        ASSERT_TRUE(file.open(QIODevice::Append));
        ASSERT_GT(file.write(QByteArray(2048 - file.size(), ' ')), 0);
        ASSERT_TRUE(file.flush());
        ASSERT_TRUE(file.setFileTime(QDateTime({2003, 2, 1}, {4, 5, 6}), QFile::FileModificationTime));
        // Later than any other time, so that reading the file doesn't change it.
        ASSERT_TRUE(file.setFileTime(QDateTime({2030, 3, 2}, {5, 6, 7}), QFile::FileAccessTime));
    }
    list(pictures);
    ASSERT_EQ(texts(lvFolder), "wide.png");
    EXPECT_EQ(progress.values.back(), progress.maximum);
    EXPECT_EQ(lvFolder.row(0).tag, picture("wide.png"));
    const std::pair<int, const char*> cells[] = {{FolderColumn::Resolution, "400 x 100"},
                                                 {FolderColumn::Pages, "1"},
                                                 {FolderColumn::FileSize, "2.00KB"},
                                                 {FolderColumn::Type, "PNG image"},
                                                 {FolderColumn::DateModified, "2/1/2003 4:05:06 AM"},
                                                 {FolderColumn::DateAccessed, "3/2/2030 5:06:07 AM"}};
    for (const auto& [number, text] : cells)
        EXPECT_EQ(column(lvFolder, number), text);
    EXPECT_NE(column(lvFolder, FolderColumn::DateCreated), column(lvFolder, FolderColumn::DateModified));
    EXPECT_EQ(sizeAt(ilFolder, lvFolder.row(0).icon), QSize(40, 30));
    EXPECT_EQ(panel("folder"), "Current Folder - " + pictures.toStdString());
    EXPECT_TRUE(QDir(temporaryFolder(settings.programFolder)).exists());
}

TEST_F(FolderViewTest, ACorruptPictureHasNoRowAmongThumbnailsAndOneAmongDetails) {
    makePicture(picture("a.bmp"), {7, 5});
    QFile::copy(picture("a.bmp"), picture("b.pcx")); // the detail view reads no header of this format
    makeDocument(picture("five.tiff"), {{{9, 7}}, {{5, 5}}, {{4, 4}}, {{3, 3}}, {{2, 2}}});
    makePicture(picture("good.jpg"), {33, 22});
    writeBytes(picture("bad.jpg"), "\xFF\xD8\xFF\xE0 not a picture");
    writeBytes(picture("empty.jpg"), "");
    writeBytes(picture("strange.png"), "neither is this");
    list(pictures);
    EXPECT_EQ(texts(lvFolder), "a.bmp b.pcx five.tiff good.jpg");
    EXPECT_EQ(column(lvFolder, FolderColumn::Pages), "1 1 5 1");
    EXPECT_EQ(ilFolder.count(), 4);
    view.makeThumbnailsAgain();
    waitForList();
    EXPECT_EQ(ilFolder.count(), 4) << "no place for the rows that are gone";

    constexpr char all[] = "a.bmp b.pcx bad.jpg empty.jpg five.tiff good.jpg strange.png";
    lvFolder.selectOnly(3);
    for (int round = 0; round < 2; ++round) {
        view.cmdDetailFolder();
        waitForList();
        EXPECT_EQ(texts(lvFolder), all);
        EXPECT_EQ(column(lvFolder, FolderColumn::Resolution, '|'),
                  "7 x 5|7 x 5|0 X 0 X 24|0 X 0 X 0|9 x 7|33 x 22|0 X 0 X 0");
        EXPECT_EQ(lvFolder.selectedRows(), std::vector<int>{5});
        view.cmdThumbnailFolder();
        EXPECT_FALSE(view.isRunning());
        EXPECT_EQ(texts(lvFolder), "a.bmp b.pcx five.tiff good.jpg");
    }

    settings.folderView = 3;
    list(pictures);
    EXPECT_EQ(texts(lvFolder), all);
    EXPECT_EQ(column(lvFolder, FolderColumn::Resolution, '|'),
              "7 X 5 X 24||0 X 0 X 24|0 X 0 X 0|9 X 7 X 24|33 X 22 X 24|0 X 0 X 0");
    EXPECT_EQ(lvFolder.subItem(4, FolderColumn::Pages), QStringLiteral("5"));
    EXPECT_EQ(ilFolder.count(), 0);
    view.cmdThumbnailFolder(); // lists again
    waitForList();
    EXPECT_EQ(ilFolder.count(), 4);
    EXPECT_EQ(column(lvFolder, FolderColumn::Resolution, '|'), "7 x 5|7 x 5|9 x 7|33 x 22");
}

TEST_F(FolderViewTest, AnEmptyFolderEmptiesTheListsAndAMissingOneIsReportedByName) {
    makePictures({"a.png"});
    list(pictures);
    const QString empty = folder.filePath(QStringLiteral("empty"));
    QDir().mkpath(empty);
    progress.starts = 0;
    list(empty);
    EXPECT_EQ(lvFolder.count() + ilFolder.count() + progress.starts, 0);
    EXPECT_EQ(panel("folder"), "Current Folder - " + empty.toStdString());
    EXPECT_EQ(view.currentFolder(), empty);
    EXPECT_FALSE(view.FolderChanging);
    const QString missing = folder.filePath(QStringLiteral("gone"));
    const ErrorSubject otherWork(QStringLiteral("other.jpg"));
    list(missing);
    const ErrorReport report = takeReport();
    EXPECT_EQ(report.ErrRoutine, QStringLiteral("FrmMain.subShowFilesInFolder"));
    EXPECT_TRUE(report.ErrSystem.startsWith(QStringLiteral("76 - "))) << report.ErrSystem.toStdString();
    EXPECT_TRUE(report.ErrSystem.contains(missing) && !report.ErrSystem.contains(QLatin1String("other.jpg")));
}

TEST_F(FolderViewTest, LackOfMemoryForARowIsDeliveredAsAFailure) {
    makePicture(picture("a.png"), {3, 3});
    std::counting_semaphore<> woken{0};
    FolderScan scan({.folder = pictures,
                     .settings = settings,
                     .info = {},
                     .known = {},
                     .readThumbnail = [](const QString&, std::optional<Size>,
                                         bool) -> std::optional<Thumbnail> { throw std::bad_alloc(); }},
                    [&] { woken.release(); });
    std::optional<TrappedError> failure;
    while (!failure) {
        woken.acquire();
        failure = scan.fetch({1, 1}).failure;
    }
    EXPECT_EQ(failure->number, ErrorNumber::OutOfMemory);
}

TEST_F(FolderViewTest, AScanIsTakenOverInStepsRowsBeforeWhatCompletesThem) {
    makePictures({"a.png", "b.png", "c.png", "d.png", "e.png"});
    std::counting_semaphore<> woken{0};
    FolderScan scan({.folder = pictures, .settings = settings, .info = {}, .known = {}},
                    [&] { woken.release(); });
    int rows = 0;
    for (int completed = 0; completed < 5;) {
        woken.acquire();
        const FolderScan::Delivery step = scan.fetch({2, 1});
        rows += int(step.rows.size());
        completed += int(step.contents.size());
        EXPECT_LE(step.rows.size(), 2u);
        EXPECT_LE(step.contents.size(), 1u);
        EXPECT_TRUE(rows == 5 || (completed == 0 && !step.allRows));
    }
}

TEST_F(FolderViewTest, WhereMemoryIsShortOnlyThumbnailsInViewAreLarge) {
    makePictures({"a.png", "b.png", "c.png", "d.png", "e.png", "f.png"});
    settings.thumbnailMemory = 6 * 20 * 15 * 3;
    int shown = 0;
    view.visibleRows = [&] { return std::pair(shown, shown); };
    list(pictures);
    const auto large = [&] {
        std::string rows;
        for (int row = 0; row < lvFolder.count(); ++row)
            rows += sizeAt(ilFolder, lvFolder.row(row).icon).width() == 40 ? 'L' : 's';
        return rows;
    };
    for (const char* expected : {"Lsssss", "LLssss", "sLLsss", "ssLLss"}) {
        view.preferVisibleRows();
        while (large() != expected)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        ++shown;
    }
    EXPECT_EQ(sizeAt(ilFolder, lvFolder.row(0).icon), QSize(20, 15));
}

TEST_F(FolderViewTest, AFolderWithoutPermissionIsNamedInTheStatusLineUntilTheNextOne) {
    if (geteuid() == 0)
        GTEST_SKIP() << "root may read every folder";
    QFile::setPermissions(pictures, QFile::ExeOwner);
    list(pictures);
    QFile::setPermissions(pictures, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_TRUE(status.panel(QStringLiteral("status")).contains(pictures));
    list(folder.path());
    EXPECT_EQ(panel("status"), "");
}

TEST_F(FolderViewTest, AnotherFolderTakesEffectAtOnceAndLeavesNoRowOfTheFirst) {
    const QString other = folder.filePath(QStringLiteral("other"));
    QDir().mkpath(other);
    makePictures({"a.png", "b.png", "c.png", "d.png"});
    makePicture(other + QStringLiteral("/x.png"), {4, 4});
    view.settings = settings;
    // At every point of the first listing.
    for (int stop = 0; stop < 8; ++stop) {
        view.subShowFilesInFolder(pictures);
        for (int event = 0; event < stop && view.isRunning(); ++event)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        view.subShowFilesInFolder(other);
        EXPECT_EQ(lvFolder.count(), 0);
        waitForList();
        EXPECT_EQ(texts(lvFolder), "x.png");
        EXPECT_EQ(ilFolder.count(), 1);
    }
}

TEST_F(FolderViewTest, AWrittenFileGetsItsRowAndPictureWhileSelectionAndOrderStay) {
    const auto paint = [this](const char* name, int red, QSize size = {4, 4}) {
        makePicture(picture(name), size, qRgb(red, 0, 0));
    };
    const auto write = [this](const QStringList& names) {
        QStringList paths{folder.path() + QStringLiteral("/elsewhere.png"), picture("text.txt")};
        for (const QString& name : names)
            paths << pictures + QLatin1Char('/') + name;
        view.showWritten(paths);
        waitForList();
    };
    const auto reds = [this] {
        std::string text;
        for (int row = 0; row < lvFolder.count(); ++row)
            text += std::to_string(pictureAt(ilFolder, lvFolder.row(row).icon).view().pixel(20, 15)[0]) + " ";
        return text;
    };
    paint("a.png", 10);
    paint("c.png", 30);
    writeBytes(picture("b.png"), "no picture");
    list(pictures);
    lvFolder.selectOnly(1);
    paint("B2.png", 20);
    write({QStringLiteral("B2.png")});
    EXPECT_EQ(texts(lvFolder), "a.png B2.png c.png");
    EXPECT_EQ(reds(), "10 20 30 ");
    EXPECT_EQ(lvFolder.selectedRows(), std::vector<int>{2});
    view.cmdDetailFolder();
    waitForList();
    EXPECT_EQ(texts(lvFolder), "a.png b.png B2.png c.png") << "what couldn't be read keeps its place";
    view.cmdThumbnailFolder();
    waitForList();
    EXPECT_EQ(reds(), "10 20 30 ");
    paint("a.png", 11, {8, 6});
    paint("b.png", 15);
    write({QStringLiteral("a.png"), QStringLiteral("b.png")});
    EXPECT_EQ(texts(lvFolder), "a.png b.png B2.png c.png");
    EXPECT_EQ(reds(), "11 15 20 30 ") << "files that were replaced are read again";
    EXPECT_EQ(lvFolder.subItem(0, FolderColumn::Resolution).toStdString(), "8 x 6");
    writeBytes(picture("0.png"), "no picture");
    writeBytes(picture("b3.png"), "no picture");
    list(pictures);
    paint("0.png", 5);
    write({QStringLiteral("0.png")});
    view.cmdDetailFolder();
    waitForList();
    EXPECT_EQ(texts(lvFolder), "0.png a.png b.png B2.png b3.png c.png") << "the other stays where it was";
    QFile::remove(picture("b3.png"));
    QFile::remove(picture("0.png"));
    view.cmdThumbnailFolder();
    list(pictures);

    lvFolder.sort(0, Qt::DescendingOrder);
    paint("bb.png", 25);
    view.refresh();
    paint("bc.png", 26);
    write({QStringLiteral("bb.png"), QStringLiteral("bc.png")}); // while the folder is being listed
    EXPECT_EQ(texts(lvFolder), "c.png bc.png bb.png B2.png b.png a.png");
    EXPECT_EQ(reds(), "30 26 25 20 15 11 ");

    view.cmdDetailFolder();
    QStringList many;
    for (int number = 0; number < 60; ++number)
        paint(qPrintable(many.emplace_back(QStringLiteral("many%1.png").arg(number))), 40);
    write(many.mid(0, 2));
    EXPECT_EQ(lvFolder.count(), 8);
    write(many);
    EXPECT_EQ(lvFolder.count(), 66);
    view.cmdThumbnailFolder();
    waitForList();
    EXPECT_EQ(pictureAt(ilFolder, lvFolder.row(65).icon).view().pixel(20, 15)[0], 11) << "a.png";
}

TEST_F(FolderViewTest, TheSortOfTheHeaderHoldsAndThumbnailsComeBackWithoutANewListing) {
    int red = 0;
    for (const char* name : {"a.png", "b.png", "c.png"})
        makePicture(picture(name), {4, 4}, qRgb(red += 10, 0, 0));
    writeBytes(picture("0.png"), "no picture, so that the others are numbered again");
    list(pictures);
    lvFolder.sort(0, Qt::DescendingOrder);
    list(pictures);
    EXPECT_EQ(texts(lvFolder), "c.png b.png a.png") << "rows that arrive later are sorted too";
    EXPECT_EQ(lvFolder.sortColumn(), 0);
    const int icon = lvFolder.row(1).icon;
    view.cmdDetailFolder();
    EXPECT_EQ(view.settings.folderView, 3);
    EXPECT_EQ(lvFolder.row(1).icon, -1);
    view.cmdThumbnailFolder();
    EXPECT_FALSE(view.isRunning());
    EXPECT_EQ(lvFolder.row(1).icon, icon);
    lvFolder.selectAll();
    basket().cmdAddToQueue_Click();
    const auto redOf = [&](int row) {
        return pictureAt(ilPages, lvPages.row(row).icon).view().pixel(20, 15)[0];
    };
    EXPECT_TRUE(redOf(0) == 30 && redOf(1) == 20 && redOf(2) == 10) << "the basket's are those of the files";
    ListRow late;
    late.text = QStringLiteral("z.png");
    lvFolder.add(late);
    EXPECT_EQ(lvFolder.sortColumn(), -1) << "the header's arrow would say what isn't so";
}
