// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/collections/CollectionWindow.h"

#include "base/SafeFileWriter.h"

#include <QFile>

using namespace tarsel;
using namespace tarsel::test;
using namespace tarsel::modSaveOpenImageList;

namespace {

class BasketFileTest : public CollectionWindow {
protected:
    QString list(const char* name) const { return folder.filePath(QString::fromLatin1(name)); }

    QString written(const char* name) const { return QString::fromUtf8(readWholeFile(list(name))); }

    QString writtenList(const char* name, const QString& text) const {
        writeBytes(list(name), text.toUtf8());
        return list(name);
    }

    /// Adds a document of two pages and a picture, in this order, and describes the rows.
    void fillBasket() {
        makeDocument(picture("scan.tif"), {{{9, 7}}, {{5, 6}}});
        makePicture(picture(inAnyScript), {3, 3});
        Basket pages = basket();
        pages.subAddEntryToListView(picture("scan.tif"));
        pages.subAddEntryToListView(picture(inAnyScript));
        for (int row = 0; row < lvPages.count(); ++row)
            lvPages.setSubItem(row, BasketColumn::Description, QStringLiteral("row %1").arg(row + 1));
    }

    const char* inAnyScript =
        "caf\xC3\xA9 \xE6\x97\xA5\xE6\x9C\xAC, \xE2\x82\xAC.png"; ///< in no single code page

    bool open(const QString& path) {
        Basket pages = basket();
        return fncOpenImageBasket(path, pages, lists);
    }
};

} // namespace

TEST_F(BasketFileTest, AListHoldsEachSourceOnceAndPairsDescriptionsByRowNumber) {
    EXPECT_FALSE(fncSaveImageBasket(1, writtenList("old.ibf", QStringLiteral("old")), lvPages));
    EXPECT_EQ(written("old.ibf"), QStringLiteral("old")) << "an empty basket is not written";
    fillBasket();
    const QString plain =
        QStringLiteral("\"%1\"\r\n\"%2\"\r\n").arg(picture("scan.tif"), picture(inAnyScript));
    const QString described = QStringLiteral("\"%1\",\"row 1\"\r\n\"%2\",\"row 2\"\r\n")
                                  .arg(picture("scan.tif"), picture(inAnyScript));
    const struct {
        int filter;
        const char* name;
        const char* made;
        QString text;
    } cases[] = {{1, "one", "one.ibf", plain},         {2, "two", "two.ibf", plain},
                 {2, "three.IBF", "three.IBF", plain}, {1, "four.ibd", "four.ibd.ibf", plain},
                 {3, "five", "five", described},       {3, "six.ibd", "six.ibd", described}};
    for (const auto& c : cases) {
        EXPECT_TRUE(fncSaveImageBasket(c.filter, list(c.name), lvPages));
        EXPECT_EQ(written(c.made), c.text) << c.made;
    }
    for (const auto& [file, descriptions] :
         {std::pair("two.ibf", "||"), std::pair("six.ibd", "row 1|row 2|")}) {
        ASSERT_TRUE(open(list(file)));
        EXPECT_EQ(texts(lvPages), std::string("scan.tif1 scan.tif2 ") + inAnyScript);
        EXPECT_EQ(column(lvPages, BasketColumn::Description, '|'), descriptions);
    }
}

TEST_F(BasketFileTest, FilesThatHaveMovedAreSkippedAndDescriptionsArePairedByLineNumber) {
    makeDocument(picture("scan.tif"), {{{9, 7}}, {{5, 6}}});
    makePicture(picture("a.png"), {3, 3});
    const struct {
        const char* sources[3];
        const char* texts;
        const char* descriptions;
    } cases[] = {
        {{"gone.png", "scan.tif", "a.png"}, "scan.tif1 scan.tif2 a.png", "first second third"},
        {{"scan.tif", "gone.png", "a.png"}, "scan.tif1 scan.tif2 a.png", "first second third"},
        {{"a.png", "gone.png", "gone.tif"}, "a.png", "first"},
        {{"gone.tif", "gone.png", "a.png"}, "a.png", "first"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.sources[0]);
        const QString lines = QStringLiteral("\"%1\",\"first\"\r\n\"%2\",\"second\"\r\n\"%3\",\"third\"\r\n")
                                  .arg(picture(c.sources[0]), picture(c.sources[1]), picture(c.sources[2]));
        EXPECT_TRUE(open(writtenList("l.ibd", lines)));
        EXPECT_EQ(texts(lvPages), c.texts);
        EXPECT_EQ(column(lvPages, BasketColumn::Description), c.descriptions);
    }
    EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(BasketFileTest, AStopLeavesNoDescriptionWithAnotherPicture) {
    makePictures({"a.png", "b.png"});
    Basket pages = basket();
    HeldReader reader(pages, "a.png");
    when([&] { return reader.hasBegun() && completeRows() == 1; }, [&] { pages.stopAdding(); });
    fncOpenImageBasket(writtenList("l.ibd", QStringLiteral("\"%1\",\"first\"\r\n\"%2\",\"second\"\r\n")
                                                .arg(picture("a.png"), picture("b.png"))),
                       pages, lists);
    reader.release();
    EXPECT_EQ(texts(lvPages), "b.png");
    EXPECT_EQ(panel("queue"), "1 file(s) in basket");
    EXPECT_EQ(column(lvPages, BasketColumn::Description), "second");
}

TEST_F(BasketFileTest, OpeningReplacesTheBasketAndKeepsItsPageFiles) {
    const QString line = QStringLiteral("\"%1\"\r\n").arg(picture(inAnyScript));
    const std::tuple<const char*, QString, int> cases[] = {
        {"l.ibf", line, 1}, {"empty.ibf", QString(), 0}, {"l.txt", line, 0}}; // another extension
    for (const auto& [name, text, rows] : cases) {
        SCOPED_TRACE(name);
        fillBasket();
        const auto files = pageFiles().size();
        progress.starts = 0;
        EXPECT_TRUE(open(writtenList(name, text)));
        EXPECT_EQ(lvPages.count(), rows);
        EXPECT_EQ(ilPages.count(), rows);
        EXPECT_EQ(progress.starts > 0, rows > 0);
        EXPECT_EQ(pageFiles().size(), files);
    }
}

TEST_F(BasketFileTest, DamagedListsAddNothingAndNameFileAndFact) {
    const struct {
        const char* name;
        bool ended;
        const char* number;
    } cases[] = {
        {"binary-noise.ibd", false, "62 - "},       {"binary-noise.ibf", true, ""},
        {"empty-line.ibf", false, "5 - "},          {"line-of-one-quote.ibf", false, "5 - "},
        {"no-description.ibd", false, "62 - "},     {"no-line-end-at-the-end.ibf", true, ""},
        {"quote-never-closed.ibd", false, "62 - "}, {"zero-length.ibd", true, ""},
    };
    const QString fixtures = QStringLiteral(TARSEL_BASKET_FIXTURES);
    EXPECT_EQ(QDir(fixtures).entryList(QDir::Files).size(), qsizetype(std::size(cases)));
    for (const auto& c : cases) {
        const QString path = fixtures + QLatin1Char('/') + QString::fromLatin1(c.name);
        EXPECT_EQ(open(path), c.ended) << c.name;
        EXPECT_EQ(lvPages.count(), 0) << c.name;
        if (c.ended)
            continue;
        const ErrorReport report = takeReport();
        EXPECT_EQ(report.ErrRoutine, QStringLiteral("modSaveOpenImageList.fncOpenImageBasket")) << c.name;
        EXPECT_TRUE(report.ErrSystem.startsWith(QLatin1String(c.number)))
            << c.name << ": " << report.ErrSystem.toStdString();
        EXPECT_TRUE(report.ErrSystem.contains(path)) << c.name;
    }
}

TEST_F(BasketFileTest, AFileThatCannotBeOpenedIsNotTrappedAndKeepsItsReason) {
    const QString tooLong = list("long") + QString(300, QLatin1Char('x'));
    const struct {
        QString path;
        QString reading;
        QString writing;
    } cases[] = {
        {list("gone/a.ibf"), QStringLiteral("File not found: %1"), QStringLiteral("Path not found: %1")},
        {folder.path(), QStringLiteral("%1: Is a directory"), QStringLiteral("%1: Is a directory")},
        {tooLong, QStringLiteral("%1: File name too long"), QStringLiteral("%1: File name too long")},
    };
    for (const auto& c : cases) {
        fillBasket();
        QString reason;
        EXPECT_FALSE(fncSaveImageBasket(3, c.path, lvPages, &reason));
        EXPECT_EQ(reason, c.writing.arg(c.path));
        Basket pages = basket();
        EXPECT_FALSE(fncOpenImageBasket(c.path, pages, lists, &reason));
        EXPECT_EQ(reason, c.reading.arg(c.path));
    }
}

TEST_F(BasketFileTest, ANameThatWouldReadBackAsAnotherIsRefusedAndTheOldListStays) {
    const struct {
        int filter;
        const char* name;
        bool storable;
    } cases[] = {{2, "a\nb.png", false},
                 {2, "a\rb.png", false},
                 {3, "a\"b.png", false},
                 {2, "a\"b.png", true},
                 {3, "a\nb.png", true}};
    for (const auto& [filter, name, storable] : cases) {
        lvPages.clear();
        makePicture(picture(name), {3, 3});
        basket().subAddEntryToListView(picture(name));
        const char* file = filter == 3 ? "l.ibd" : "l.ibf";
        const QString path = writtenList(file, QStringLiteral("old"));
        EXPECT_EQ(fncSaveImageBasket(filter, path, lvPages), storable) << name;
        EXPECT_EQ(written(file) == QLatin1String("old"), !storable) << name;
        EXPECT_EQ(storable && readBasketEntries(path).at(0).path == picture(name), storable) << name;
    }
    EXPECT_EQ(desktop.reports.size(), 3u);
    desktop.reports.clear();
}
