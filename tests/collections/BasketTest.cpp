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

    /// Rows named a, b, c, .. whose Tag and SubItems tell them apart.
    void fillBasket(int rows) {
        for (int i = 0; i < rows; ++i) {
            ListRow row;
            row.text = QString(QChar(u'a' + i));
            row.tag = QStringLiteral("/tag/") + row.text;
            row.key = QStringLiteral("key") + row.text;
            row.icon = i;
            row.subItems = QStringList(5, row.text);
            lvPages.add(row);
        }
    }

    QString order() const { return texts(lvPages).join(QString()); }
};

} // namespace

TEST_F(BasketTest, ASelectedPictureBecomesARowNamedWithoutItsExtension) {
    makePicture(picture("sea.side.jpg"), {33, 22});
    makePicture(picture("not selected.png"), {5, 5});
    listAndSelectAll();
    lvFolder.select(0, false);
    basket().cmdAddToQueue_Click();
    ASSERT_EQ(texts(lvPages), QStringList{QStringLiteral("sea.side")});
    const ListRow& row = lvPages.row(0);
    EXPECT_EQ(row.tag, picture("sea.side.jpg"));
    EXPECT_EQ(row.subItems[0], QStringLiteral("33 x 22"));
    EXPECT_EQ(row.subItems[1], lvFolder.subItem(1, FolderColumn::FileSize));
    EXPECT_EQ(row.subItems[2], lvFolder.subItem(1, FolderColumn::Type));
    EXPECT_EQ(row.subItems[3], row.tag);
    EXPECT_EQ(sizeAt(ilPages, row.icon), QSize(40, 30));
    EXPECT_EQ(status.panel(QStringLiteral("queue")), QStringLiteral("1 file(s) in basket"));
    EXPECT_EQ(status.panel(QStringLiteral("status")), QString());
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

TEST_F(BasketTest, ADocumentWhosePagesAreNotCountedYetIsStillSplit) {
    makeScan();
    listAndSelectAll();
    ListRow row = lvFolder.row(0);
    row.subItems[FolderColumn::Pages - 1].clear();
    lvFolder.replace(0, row);
    basket().cmdAddToQueue_Click();
    EXPECT_EQ(lvPages.count(), 3);
}

TEST_F(BasketTest, AStoredThumbnailSizeIsUsedWithinBounds) {
    const struct {
        Size stored, used;
    } cases[] = {{{20000, 20000}, {300, 300}}, {{0, 50}, {40, 40}}, {{64, 301}, {64, 300}}};
    for (const auto& c : cases)
        EXPECT_TRUE(usableThumbnailSize(c.stored) == c.used) << c.stored.width << " x " << c.stored.height;
}

TEST_F(BasketTest, AddingTheSameRowTwiceAddsItOnce) {
    makePicture(picture("a.png"), {3, 3});
    makeScan();
    listAndSelectAll();
    basket().cmdAddToQueue_Click();
    EXPECT_EQ(lvPages.count(), 4);
    basket().cmdAddToQueue_Click();
    basket().AddToBasketByDrag();
    EXPECT_EQ(lvPages.count(), 4);
}

TEST_F(BasketTest, ADocumentIsRefusedAsLongAsOneOfItsPagesIsInTheBasket) {
    makeScan();
    listAndSelectAll();
    Basket pages = basket();
    pages.cmdAddToQueue_Click();
    lvPages.selectOnly(0);
    lvPages.select(2);
    pages.cmdPagesDelete();
    EXPECT_EQ(status.panel(QStringLiteral("queue")), QStringLiteral("1 file(s) in basket"));
    pages.cmdAddToQueue_Click();
    EXPECT_EQ(texts(lvPages), QStringList{QStringLiteral("scan2")});
    lvPages.selectAll();
    pages.cmdPagesDelete();
    pages.cmdAddToQueue_Click();
    EXPECT_EQ(lvPages.count(), 3);
}

TEST_F(BasketTest, EachRoadSplitsADocumentIntoPagesWithItsOwnSpelling) {
    makeScan();
    listAndSelectAll();
    basket().cmdAddToQueue_Click();
    EXPECT_EQ(texts(lvPages).join(QLatin1Char(' ')), QStringLiteral("scan1 scan2 scan3"));
    EXPECT_EQ(column(lvPages, BasketColumn::Resolution).join(QLatin1Char(' ')),
              QStringLiteral("9 X 7 5 X 6 3 X 4"));
    EXPECT_EQ(column(lvPages, BasketColumn::SourcePath), QStringList(3, picture("scan.tif")));
    basket().empty();
    basket().AddToBasketByDrag();
    EXPECT_EQ(texts(lvPages).join(QLatin1Char(' ')), QStringLiteral("scan(1) scan(2) scan(3)"));
    EXPECT_EQ(status.panel(QStringLiteral("folder")), QString());
    basket().empty();
    basket().subAddEntryToListView(picture("scan.tif"));
    EXPECT_EQ(texts(lvPages).join(QLatin1Char(' ')), QStringLiteral("scan.tif1 scan.tif2 scan.tif3"));
    EXPECT_EQ(pageFiles().size(), 9);
}

TEST_F(BasketTest, ADocumentIsReadOnceForAllItsPages) {
    makeScan();
    listAndSelectAll();
    desktop.onYield = [&] {
        if (lvPages.count() == 1)
            QFile::remove(picture("scan.tif"));
    };
    basket().cmdAddToQueue_Click();
    EXPECT_EQ(lvPages.count(), 3);
}

TEST_F(BasketTest, APageFileHoldsThePageThatItsRowNames) {
    makeScan();
    listAndSelectAll();
    basket().cmdAddToQueue_Click();
    const Color colors[] = {0x0000FF, 0x00FF00, 0xFF0000};
    ASSERT_EQ(lvPages.count(), 3);
    for (int row = 0; row < 3; ++row) {
        ImageBox box;
        box.LoadFromFile(lvPages.row(row).tag);
        EXPECT_EQ(box.PixelColor(1, 1), colors[row]) << row;
        EXPECT_EQ(ImageBox::PageCount(lvPages.row(row).tag), 1);
    }
    EXPECT_FALSE(workspace.ibMain.HasImage()) << "the preview's box is left alone";
}

TEST_F(BasketTest, DocumentsOfOneNameFromTwoFoldersKeepTheirOwnPages) {
    makeScan();
    const QString other = folder.filePath(QStringLiteral("other/scan.tif"));
    QDir(folder.path()).mkpath(QStringLiteral("other"));
    makeDocument(other, {{{2, 2}, qRgb(1, 2, 3)}, {{2, 2}, qRgb(4, 5, 6)}});
    Basket pages = basket();
    pages.subAddEntryToListView(picture("scan.tif"));
    pages.subAddEntryToListView(other); // the same random number
    ASSERT_EQ(lvPages.count(), 5);
    ImageBox box;
    box.LoadFromFile(lvPages.row(0).tag);
    EXPECT_EQ(box.PixelColor(0, 0), 0x0000FF);
    box.LoadFromFile(lvPages.row(3).tag);
    EXPECT_EQ(box.PixelColor(0, 0), 0x030201);
}

TEST_F(BasketTest, APageThatCannotBeReadIsSkippedAndTheOthersGoOn) {
    makeDocument(picture("scan.tif"),
                 {{{9, 7}}, {{5, 6}, qRgb(0, 0, 0), 65000}, {{2, 2}, qRgb(0, 0, 0), 65000}, {{3, 4}}});
    Basket pages = basket();
    pages.subAddEntryToListView(picture("scan.tif"));
    EXPECT_EQ(texts(lvPages).join(QLatin1Char(' ')), QStringLiteral("scan.tif1 scan.tif4"));
    EXPECT_EQ(pages.LTemp(), QStringList{picture("scan.tif")});
    EXPECT_EQ(pageFiles().size(), 2);
}

TEST_F(BasketTest, APageThatCannotBeWrittenIsReported) {
    makeScan();
    writeBytes(settings.programFolder, "a file where the folder should be");
    basket().subAddEntryToListView(picture("scan.tif"));
    EXPECT_EQ(takeReport().ErrRoutine, QStringLiteral("subAddEntryToListView"));
    EXPECT_EQ(lvPages.count(), 0);
}

TEST_F(BasketTest, FilesThatCannotBeReadAreRememberedAndGetNoRow) {
    makePicture(picture("a.png"), {3, 3});
    writeBytes(picture("b.png"), "nothing");
    settings.folderView = 3;
    listAndSelectAll();
    Basket pages = basket();
    pages.cmdAddToQueue_Click();
    EXPECT_EQ(texts(lvPages), QStringList{QStringLiteral("a")});
    EXPECT_EQ(pages.LTemp(), QStringList{picture("b.png")});
    pages.cmdAddToQueue_Click();
    EXPECT_EQ(pages.LTemp(), QStringList{picture("b.png")});
}

TEST_F(BasketTest, WithoutThumbnailsThePictureIsKnownByItsHeaderAlone) {
    makePicture(picture("a.jpg"), {33, 22});
    writeBytes(picture("bad.jpg"), "\xFF\xD8\xFF\xE0 not a picture");
    // A good header and no pixels.
    QFile whole(picture("a.jpg"));
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    const QByteArray bytes = whole.readAll();
    writeBytes(picture("cut.jpg"), bytes.left(bytes.indexOf("\xFF\xDA") + 14));
    settings.thumbnails = false;
    Basket pages = basket();
    for (const char* name : {"a.jpg", "bad.jpg", "cut.jpg", "missing.jpg"})
        pages.subAddEntryToListView(picture(name));
    EXPECT_EQ(texts(lvPages), (QStringList{QStringLiteral("a.jpg"), QStringLiteral("cut.jpg")}));
    EXPECT_EQ(column(lvPages, BasketColumn::Resolution), QStringList(2, QStringLiteral("33 X 22")));
    EXPECT_EQ(pages.LTemp(), (QStringList{picture("bad.jpg"), picture("missing.jpg")}));
    EXPECT_EQ(ilPages.count(), 0);
}

TEST_F(BasketTest, TheDuplicateTestCopesWithTenThousandRows) {
    constexpr int Rows = 10'000;
    for (int i = 0; i < Rows; ++i) {
        ListRow row;
        row.tag = QStringLiteral("/pictures/of/one/long/journey/%1.jpg").arg(i);
        row.subItems = QStringList{QString(), QString(), QString(), row.tag};
        lvPages.add(row);
        row.selected = true;
        lvFolder.add(row);
    }
    basket().cmdAddToQueue_Click();
    EXPECT_EQ(lvPages.count(), Rows);
    EXPECT_EQ(desktop.yields, Rows);
}

TEST_F(BasketTest, AFolderListThatIsEmptiedWhileItIsAddedEndsTheAdding) {
    for (const char* name : {"a.png", "b.png", "c.png"})
        makePicture(picture(name), {3, 3});
    listAndSelectAll();
    desktop.onYield = [&] {
        if (lvPages.count() == 1)
            lvFolder.clear();
    };
    basket().cmdAddToQueue_Click();
    EXPECT_EQ(lvPages.count(), 1);
}

TEST_F(BasketTest, RowsThatAListingTakesOutMeanwhileCostNoOtherRow) {
    for (const char* name : {"a.png", "b.png", "c.png", "d.png"})
        makePicture(picture(name), {3, 3});
    listAndSelectAll();
    desktop.onYield = [&] {
        if (lvPages.count() == 2 && lvFolder.count() == 4)
            lvFolder.remove(0);
    };
    basket().cmdAddToQueue_Click();
    EXPECT_EQ(texts(lvPages).join(QLatin1Char(' ')), QStringLiteral("a b c d"));
}

TEST_F(BasketTest, AStoppedAddingEndsBeforeTheNextPageAndTheNextOneRuns) {
    makeScan();
    makePicture(picture("z.png"), {3, 3});
    Basket pages = basket();
    QList<bool> shown;
    pages.addingChanged = [&](bool adding) { shown << adding; };
    desktop.onYield = [&] {
        if (lvPages.count() == 2)
            pages.stopAdding();
    };
    listAndSelectAll();
    pages.cmdAddToQueue_Click();
    EXPECT_EQ(texts(lvPages), (QStringList{QStringLiteral("scan1"), QStringLiteral("scan2")}));
    EXPECT_EQ(status.panel(QStringLiteral("queue")), QStringLiteral("2 file(s) in basket"));
    EXPECT_FALSE(progress.visible);
    EXPECT_EQ(shown, (QList<bool>{true, false}));
    desktop.onYield = {};
    pages.cmdAddToQueue_Click();
    EXPECT_EQ(lvPages.count(), 3) << "z, since scan counts as a duplicate";
}

TEST_F(BasketTest, SelectingNothingOnlyClearsTheSelectionOfTheBasket) {
    makePicture(picture("a.png"), {3, 3});
    fillBasket(3);
    lvPages.selectAll();
    list(pictures);
    basket().cmdAddToQueue_Click();
    EXPECT_EQ(order(), QStringLiteral("abc"));
    EXPECT_TRUE(lvPages.selectedRows().empty());
}

TEST_F(BasketTest, NewBasketDeletesPageFilesAndLeavesTheSources) {
    makeScan();
    Basket pages = basket();
    pages.subAddEntryToListView(picture("scan.tif"));
    const QString foreign = temporaryFolder(settings.programFolder) + QStringLiteral("saver.jpg");
    writeBytes(foreign, "x");
    pages.cmdPagesNew();
    EXPECT_EQ(lvPages.count() + ilPages.count(), 0);
    EXPECT_EQ(pageFiles(), QStringList{QStringLiteral("saver.jpg")});
    EXPECT_TRUE(QFile::exists(picture("scan.tif")));
    EXPECT_EQ(status.panel(QStringLiteral("queue")), QStringLiteral("New Basket"));
}

TEST_F(BasketTest, RemovingRowsKeepsTheOrderOfTheOthersAndThePageFiles) {
    makeScan();
    Basket pages = basket();
    pages.subAddEntryToListView(picture("scan.tif"));
    fillBasket(5);
    for (const int row : {0, 3, 5, 7})
        lvPages.select(row);
    pages.cmdPagesDelete();
    EXPECT_EQ(order(), QStringLiteral("scan.tif2scan.tif3bd"));
    EXPECT_EQ(pageFiles().size(), 3);
}

TEST_F(BasketTest, ADropMovesTheSelectedRowsInTheirOrder) {
    const struct {
        std::vector<int> selected;
        int focused, target;
        const char* expected;
    } cases[] = {
        {{1}, 1, 3, "acdbef"}, // down: behind the row
        {{3}, 3, 1, "adbcef"}, // up: in front of it
        {{0, 1}, 0, 5, "cdefab"},
        {{4, 5}, 5, 0, "efabcd"},
        {{1, 4}, 4, 2, "abecdf"},
        {{0, 2, 4}, 2, 3, "bdacef"},
        {{2, 3, 4}, 3, 3, "abcdef"},
        {{0}, 0, 0, "abcdef"},
        {{0, 1, 2, 3, 4, 5}, 2, 5, "abcdef"},
        {{2}, -1, 4, "abcdef"},
        {{2}, 2, 6, "abcdef"},
        {{2}, 2, -1, "abcdef"},
    };
    for (const auto& c : cases) {
        lvPages.clear();
        fillBasket(6);
        for (const int row : c.selected)
            lvPages.select(row);
        lvPages.setFocusedRow(c.focused);
        basket().MoveRowsTo(c.target);
        EXPECT_EQ(order().toStdString(), c.expected) << c.target;
        EXPECT_EQ(lvPages.selectedRows().size(), c.selected.size());
        for (int i = 0; i < lvPages.count(); ++i) {
            const ListRow& row = lvPages.row(i);
            EXPECT_EQ(row.tag, QStringLiteral("/tag/") + row.text);
            EXPECT_EQ(row.key, QStringLiteral("key") + row.text);
            EXPECT_EQ(row.icon, row.text[0].unicode() - u'a');
            EXPECT_EQ(row.subItems, QStringList(5, row.text));
        }
    }
}

TEST_F(BasketTest, TheFocusFollowsTheRowThatWasDragged) {
    fillBasket(6);
    lvPages.select(0);
    lvPages.select(2);
    lvPages.setFocusedRow(2);
    basket().MoveRowsTo(5);
    EXPECT_EQ(lvPages.row(lvPages.focusedRow()).text, QStringLiteral("c"));
}
