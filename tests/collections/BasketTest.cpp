// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/collections/CollectionWindow.h"

#include <QFile>

using namespace tarsel;
using namespace tarsel::test;

namespace {

class BasketTest : public CollectionWindow {
protected:
    void makeScan(const char* name = "scan.tif") {
        makeDocument(picture(name),
                     {{{9, 7}, qRgb(255, 0, 0)}, {{5, 6}, qRgb(0, 255, 0)}, {{3, 4}, qRgb(0, 0, 255)}});
    }

    /// Rows named a, b, c ..
    void fillBasket(int rows) {
        for (int i = 0; i < rows; ++i) {
            ListRow row;
            row.text = QString(QChar(u'a' + i));
            row.tag = QStringLiteral("/tag/") + row.text;
            row.icon = i;
            lvPages.add(row);
        }
    }

    void whenRowsAre(int rows, const std::function<void()>& action) {
        when([this, rows] { return lvPages.count() == rows; }, action);
    }

    static Color cornerOf(const QString& path) {
        ImageBox box;
        box.LoadFromFile(path);
        return box.PixelColor(0, 0);
    }
};

} // namespace

TEST_F(BasketTest, ASelectedPictureBecomesARowNamedWithoutItsExtension) {
    makePicture(picture("sea.side.jpg"), {33, 22});
    makePicture(picture("not selected.png"), {5, 5});
    listAndSelectAll();
    lvFolder.select(0, false);
    basket().cmdAddToQueue_Click();
    ASSERT_EQ(texts(lvPages), "sea.side");
    lvPages.selectAll();
    lvFolder.selectOnly(-1);
    basket().cmdAddToQueue_Click();
    EXPECT_EQ(lvPages.count(), 1);
    EXPECT_TRUE(lvPages.selectedRows().empty()) << "nothing added clears the selection, too";
    const ListRow& row = lvPages.row(0);
    EXPECT_EQ(row.tag, picture("sea.side.jpg"));
    const QStringList expected{QStringLiteral("33 x 22"), lvFolder.subItem(1, FolderColumn::FileSize),
                               lvFolder.subItem(1, FolderColumn::Type), row.tag};
    EXPECT_EQ(row.subItems.mid(0, 4), expected);
    EXPECT_EQ(sizeAt(ilPages, row.icon), QSize(40, 30));
    EXPECT_EQ(row.number, -1) << "a number stays only while the file is read";
    EXPECT_EQ(panel("queue"), "1 file(s) in basket");
    EXPECT_EQ(panel("status"), "");
}

TEST_F(BasketTest, ThumbnailsAreTheFolderListsScaledToTheBasket) {
    makePicture(picture("a.png"), {33, 22});
    settings.basketThumb = {64, 64};
    settings.pixelRatio = 2;
    listAndSelectAll();
    EXPECT_EQ(sizeAt(ilFolder, lvFolder.row(0).icon), QSize(80, 60))
        << "two pixels for each of a dense screen";
    QFile::remove(picture("a.png")); // the picture must come from the list
    basket().cmdAddToQueue_Click();
    ASSERT_EQ(lvPages.count(), 1);
    EXPECT_EQ(sizeAt(ilPages, lvPages.row(0).icon), QSize(128, 128));
}

TEST_F(BasketTest, AStoredThumbnailSizeIsUsedWithinBounds) {
    const struct {
        Size stored, used;
    } cases[] = {{{20000, 20000}, {300, 300}}, {{0, 50}, {40, 40}}, {{64, 301}, {64, 300}}};
    for (const auto& c : cases)
        EXPECT_TRUE(usableThumbnailSize(c.stored) == c.used) << c.stored.width << " x " << c.stored.height;
}

TEST_F(BasketTest, NoRowIsAddedTwiceAndNoDocumentOfWhichAPageIsThere) {
    makePictures({"a.png"});
    makeScan();
    listAndSelectAll();
    Basket pages = basket();
    pages.cmdAddToQueue_Click();
    EXPECT_EQ(texts(lvPages), "a scan1 scan2 scan3");
    pages.cmdAddToQueue_Click();
    pages.AddToBasketByDrag();
    EXPECT_EQ(lvPages.count(), 4);
    lvPages.selectOnly(1);
    lvPages.select(3);
    pages.cmdPagesDelete();
    EXPECT_EQ(panel("queue"), "2 file(s) in basket");
    pages.cmdAddToQueue_Click();
    EXPECT_EQ(texts(lvPages), "a scan2");
    lvPages.selectAll();
    pages.cmdPagesDelete();
    ListRow row = lvFolder.row(1);
    row.subItems[FolderColumn::Pages - 1].clear(); // the pages are not counted yet
    lvFolder.replace(1, row);
    pages.cmdAddToQueue_Click();
    EXPECT_EQ(lvPages.count(), 4);
}

TEST_F(BasketTest, EachWayOfAddingSplitsADocumentIntoPagesWithItsOwnSpelling) {
    makeScan();
    listAndSelectAll();
    // Read once for all its pages.
    whenRowsAre(2, [&] {
        QFile::rename(picture("scan.tif"), picture("moved"));
        EXPECT_EQ(progress.maximum, 3) << "the bar counts pages";
        EXPECT_EQ(progress.values.back(), 1);
    });
    basket().cmdAddToQueue_Click();
    QFile::rename(picture("moved"), picture("scan.tif"));
    EXPECT_EQ(texts(lvPages), "scan1 scan2 scan3");
    EXPECT_EQ(column(lvPages, BasketColumn::Resolution), "9 X 7 5 X 6 3 X 4");
    const Color colors[] = {0x0000FF, 0x00FF00, 0xFF0000};
    for (int row = 0; row < 3; ++row) {
        EXPECT_EQ(lvPages.subItem(row, BasketColumn::SourcePath), picture("scan.tif"));
        EXPECT_EQ(cornerOf(lvPages.row(row).tag), colors[row]) << row;
        EXPECT_EQ(ImageBox::PageCount(lvPages.row(row).tag), 1);
    }
    EXPECT_FALSE(workspace.ibMain.HasImage()) << "the preview's box is left alone";
    basket().empty();
    basket().AddToBasketByDrag();
    EXPECT_EQ(texts(lvPages), "scan(1) scan(2) scan(3)");
    basket().empty();
    basket().subAddEntryToListView(picture("scan.tif"));
    EXPECT_EQ(texts(lvPages), "scan.tif1 scan.tif2 scan.tif3");
    EXPECT_EQ(pageFiles().size(), 9);

    const QString other = folder.filePath(QStringLiteral("other/scan.tif"));
    QDir(folder.path()).mkpath(QStringLiteral("other"));
    makeDocument(other, {{{2, 2}, qRgb(1, 2, 3)}, {{2, 2}, qRgb(4, 5, 6)}});
    basket().subAddEntryToListView(other); // the same random number
    ASSERT_EQ(lvPages.count(), 5);
    EXPECT_EQ(cornerOf(lvPages.row(0).tag), 0x0000FF);
    EXPECT_EQ(cornerOf(lvPages.row(3).tag), 0x030201);
}

TEST_F(BasketTest, APageThatCannotBeReadIsSkippedAndOneThatCannotBeWrittenIsReported) {
    makeDocument(picture("scan.tif"),
                 {{{9, 7}}, {{5, 6}, qRgb(0, 0, 0), 65000}, {{2, 2}, qRgb(0, 0, 0), 65000}, {{3, 4}}});
    Basket pages = basket();
    pages.subAddEntryToListView(picture("scan.tif"));
    EXPECT_EQ(texts(lvPages), "scan.tif1 scan.tif4");
    EXPECT_EQ(pages.LTemp(), QStringList{picture("scan.tif")});
    EXPECT_EQ(pageFiles().size(), 2);
    pages.empty();
    makePictures({"a.png", "z.png"});
    makeScan("other.tif");
    listAndSelectAll();
    QDir(settings.programFolder).removeRecursively();
    writeBytes(settings.programFolder, "a file where the folder should be");
    pages.subAddEntryToListView(picture("scan.tif"));
    EXPECT_EQ(takeReport().ErrRoutine, QStringLiteral("subAddEntryToListView"));
    EXPECT_EQ(lvPages.count(), 0);
    pages.cmdAddToQueue_Click();
    const ErrorReport report = takeReport(); // one for all
    const QString documents = picture("other.tif") + QLatin1Char('\n') + picture("scan.tif");
    EXPECT_TRUE(report.ErrSystem.contains(documents)) << report.ErrSystem.toStdString();
    EXPECT_EQ(texts(lvPages), "a z") << "the others go on";
    EXPECT_EQ(panel("status") + '|' + panel("queue"), "|2 file(s) in basket");
}

TEST_F(BasketTest, WithoutThumbnailsThePictureIsKnownByItsHeaderAlone) {
    makePicture(picture("a.jpg"), {33, 22});
    writeBytes(picture("bad.jpg"), "\xFF\xD8\xFF\xE0 not a picture");
    // A good header and no pixels.
    QFile complete(picture("a.jpg"));
    ASSERT_TRUE(complete.open(QIODevice::ReadOnly));
    const QByteArray bytes = complete.readAll();
    writeBytes(picture("cut.jpg"), bytes.left(bytes.indexOf("\xFF\xDA") + 14));
    settings.thumbnails = false;
    Basket pages = basket();
    for (const char* name : {"a.jpg", "bad.jpg", "cut.jpg", "missing.jpg"})
        pages.subAddEntryToListView(picture(name));
    EXPECT_EQ(texts(lvPages), "a.jpg cut.jpg");
    EXPECT_EQ(column(lvPages, BasketColumn::Resolution, '|'), "33 X 22|33 X 22");
    EXPECT_EQ(pages.LTemp(), (QStringList{picture("bad.jpg"), picture("missing.jpg")}));
    EXPECT_EQ(ilPages.count(), 0);
}

TEST_F(BasketTest, APictureThatTakesLongHoldsUpNeitherTheWindowNorOtherRows) {
    makePictures({"a.png", "c.png", "held.png"});
    writeBytes(picture("bad.png"), "not a picture");
    settings.folderView = 3; // no thumbnails to take over
    Basket* adding = nullptr;
    const struct {
        std::function<void()> change; ///< with the held picture in work and the others complete
        const char* expected;
        bool endsBefore; ///< the adding ends before the picture is read
    } cases[] = {
        {[] {}, "a c held", false},
        {[&] { lvFolder.clear(); }, "a c held", false},
        {[&] { lvPages.sort(0, Qt::DescendingOrder); }, "held c a", false},
        {[&] { lvPages.remove(0); }, "c held", false},
        {[&] { lvPages.remove(2); }, "a c", true},
        {[&] { lvPages.clear(); }, "", true},
        {[&] { adding->cmdPagesNew(); }, "", true},
        {[&] { adding->stopAdding(); }, "a c", true},
    };
    for (const auto& [change, expected, endsBefore] : cases) {
        SCOPED_TRACE(&change - &cases[0].change);
        listAndSelectAll();
        lvPages.clear();
        Basket pages = basket();
        adding = &pages;
        HeldReader reader(pages, "held");
        std::string first;
        const QObject scope;
        QObject::connect(&lvPages, &QAbstractItemModel::rowsInserted, &scope,
                         [&] { first = texts(lvPages); });
        when([&] { return reader.hasBegun() && completeRows() == 2 && lvPages.count() == 3; },
             [&, change = change, endsBefore = endsBefore] {
                 change();
                 if (!endsBefore)
                     reader.release();
             });
        pages.cmdAddToQueue_Click();
        EXPECT_EQ(first, "a bad c held") << "at once";
        EXPECT_EQ(texts(lvPages), expected);
        EXPECT_EQ(completeRows(), lvPages.count());
        if (endsBefore)
            reader.release();
    }
}

TEST_F(BasketTest, TheBarBelongsToTheAddingAndThenToTheListingAgain) {
    for (const char* name : {"a.png", "b.png"})
        makePicture(picture(name), {3, 3});
    Basket pages = basket();
    pages.addingChanged = [&](bool adding) { view.lendBar(adding); };
    for (const bool endsMeanwhile : {false, true}) {
        listAndSelectAll();
        pages.empty();
        view.makeThumbnailsAgain();
        desktop.onYield = [&] {
            EXPECT_TRUE(progress.visible);
            if (endsMeanwhile)
                waitForList();
        };
        pages.cmdAddToQueue_Click();
        EXPECT_EQ(progress.visible, !endsMeanwhile);
        waitForList();
        EXPECT_FALSE(progress.visible);
    }
    EXPECT_EQ(lvPages.count(), 2);
}

TEST_F(BasketTest, ADocumentThatIsStoppedOrRemovedKeepsItsPagesSoFarAndNoOtherPageFile) {
    makeScan();
    makePictures({"a.png"});
    for (const bool isStopped : {true, false}) {
        SCOPED_TRACE(isStopped);
        listAndSelectAll();
        std::optional<Basket> pages(std::in_place, lists, settings);
        pages->cmdPagesNew();
        HeldReader reader(*pages, "scan2");
        QList<bool> shown;
        pages->addingChanged = [&](bool adding) { shown << adding; };
        when([&] { return reader.hasBegun() && lvPages.count() == 3 && completeRows() == 2; },
             [&] {
                 EXPECT_EQ(texts(lvPages), "a scan(1) scan");
                 isStopped ? pages->stopAdding() : lvPages.remove(2);
             });
        pages->AddToBasketByDrag();
        reader.release();
        EXPECT_EQ(texts(lvPages), "a scan(1)");
        EXPECT_EQ(panel("queue"), "2 file(s) in basket");
        EXPECT_FALSE(progress.visible);
        EXPECT_EQ(shown, (QList<bool>{true, false}));
        pages.reset(); // waits for the page in work
        EXPECT_EQ(pageFiles().size(), 1);
    }
    Basket pages = basket();
    lvPages.clear();
    std::stop_source outside;
    pages.stop = outside.get_token();
    outside.request_stop(); // as a signal does on the command line
    pages.cmdAddToQueue_Click();
    EXPECT_TRUE(lvPages.isEmpty());
}

TEST_F(BasketTest, PagesThatWereReadBeforeAStopOrTheEndOfTheirRowLeaveNoFile) {
    makeScan();
    makePictures({"held.png"});
    settings.folderView = 3;
    for (const bool isStopped : {true, false}) {
        listAndSelectAll();
        std::optional<Basket> pages(std::in_place, lists, settings);
        pages->cmdPagesNew();
        HeldReader reader(*pages, "held");
        whenRowsAre(3, [&] {
            while (pageFiles().size() < 3) // the second page is there, and not fetched
                QThread::yieldCurrentThread();
            isStopped ? pages->stopAdding() : lvPages.remove(2);
            reader.release();
        });
        pages->cmdAddToQueue_Click();
        EXPECT_EQ(texts(lvPages), isStopped ? "scan1" : "held scan1");
        pages.reset(); // waits for the page in work
        EXPECT_EQ(pageFiles().size(), 1);
    }
}

TEST_F(BasketTest, FilesAndFoldersOfAnotherProgramAreAddedAndItSaysWhatWasSkipped) {
    makePictures({"b #1.png", "a%20\xC3\xA4.png", "in.png"});
    QDir(pictures).mkpath(QStringLiteral("below"));
    makePictures({"below/deep.png"});
    writeBytes(picture("notes.txt"), "no picture");
    makeScan("below/scan.tif");
    Basket pages = basket();
    pages.subAddEntryToListView(picture("in.png"));
    status.setPanel(QStringLiteral("folder"), QStringLiteral("Current Folder"));
    QList<QUrl> offered;
    for (const char* name : {"notes.txt", "below/scan.tif", "gone.png", ""})
        offered << QUrl::fromLocalFile(picture(name));
    for (const char* url : {"http://host/a.png", "file://elsewhere/b.png", "file:///b%FF.png"})
        offered << QUrl(QLatin1String(url));
    int followed = 0; // by the count, while files are being added
    desktop.onYield = [&] {
        followed += panel("queue") == std::to_string(lvPages.count()) + " file(s) in basket" ? 1 : 0;
    };
    pages.addOfferedFiles(offered);
    EXPECT_EQ(texts(lvPages), "in.png scan(1) scan(2) scan(3) a%20\xC3\xA4 b #1");
    EXPECT_EQ(panel("status"),
              "2 addresses were skipped: they are not on this computer. 3 files and folders were "
              "skipped: they can't be read. 1 picture was skipped: it is in the basket.");
    EXPECT_EQ(panel("folder"), "Current Folder") << "files of elsewhere";
    EXPECT_EQ(pages.LTemp(), QStringList{picture("notes.txt")});
    EXPECT_GT(followed, 0);
}

TEST_F(BasketTest, RemovingRowsKeepsThePageFilesAndNewBasketDeletesThemAndNoSource) {
    makeScan();
    Basket pages = basket();
    pages.subAddEntryToListView(picture("scan.tif"));
    fillBasket(5);
    for (const int row : {0, 3, 5, 7})
        lvPages.select(row);
    pages.cmdPagesDelete();
    EXPECT_EQ(texts(lvPages), "scan.tif2 scan.tif3 b d");
    EXPECT_EQ(pageFiles().size(), 3);
    const QString temporary = temporaryFolder(settings.programFolder);
    QDir(temporary).mkpath(QStringLiteral("inner.tif"));
    for (const char* name : {"saver.jpg", "a.tiff", ".hidden.tif", "inner.tif/c.tif"})
        writeBytes(temporary + QLatin1String(name), "x");
    pages.cmdPagesNew();
    EXPECT_EQ(lvPages.count() + ilPages.count(), 0);
    EXPECT_EQ(pageFiles().join(QLatin1Char(' ')).toStdString(), "a.tiff saver.jpg");
    EXPECT_TRUE(QFile::exists(temporary + QStringLiteral("inner.tif/c.tif")));
    EXPECT_TRUE(QFile::exists(picture("scan.tif")));
    EXPECT_EQ(panel("queue"), "New Basket");
}

TEST_F(BasketTest, ADropMovesTheSelectedRowsInTheirOrderAndTheFocusWithThem) {
    const struct {
        std::vector<int> selected;
        int focused, target;
        const char* expected;
    } cases[] = {
        {{1}, 1, 3, "a c d b e f"}, // down: after the row
        {{3}, 3, 1, "a d b c e f"}, // up: before it
        {{0, 1}, 0, 5, "c d e f a b"},
        {{4, 5}, 5, 0, "e f a b c d"},
        {{1, 4}, 4, 2, "a b e c d f"},
        {{0, 2, 4}, 2, 3, "b d a c e f"},
        {{2, 3, 4}, 3, 3, "a b c d e f"},
        {{0}, 0, 0, "a b c d e f"},
        {{0, 1, 2, 3, 4, 5}, 2, 5, "a b c d e f"},
        {{2}, -1, 4, "a b c d e f"},
        {{2}, 2, 6, "a b c d e f"},
        {{2}, 2, -1, "a b c d e f"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.target);
        lvPages.clear();
        fillBasket(6);
        for (const int row : c.selected)
            lvPages.select(row);
        lvPages.setFocusedRow(c.focused);
        basket().MoveRowsTo(c.target);
        EXPECT_EQ(texts(lvPages), c.expected);
        EXPECT_EQ(lvPages.selectedRows().size(), c.selected.size());
        if (c.focused >= 0) {
            EXPECT_EQ(lvPages.row(lvPages.focusedRow()).icon, c.focused);
        }
    }
    const std::tuple<std::vector<int>, int, const char*> steps[] = {
        {{0, 2}, -1, "a c b d e f"}, {{1, 2}, -1, "b c a d e f"}, {{1, 3}, 1, "a c e b d f"},
        {{4}, 1, "a b c d f e"},     {{4, 5}, 1, "a b c d e f"},  {{}, 1, "a b c d e f"},
    };
    for (const auto& [selected, step, expected] : steps) {
        lvPages.clear();
        fillBasket(6);
        for (const int row : selected)
            lvPages.select(row);
        basket().moveSelected(step);
        EXPECT_EQ(texts(lvPages), expected);
    }
}
