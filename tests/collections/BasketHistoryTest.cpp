// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/AcquiredFiles.h"
#include "base/SafeFileWriter.h"
#include "collections/LastBasket.h"
#include "tests/collections/CollectionWindow.h"

#include <QThread>
#include <map>
#include <random>
#include <utility>

using namespace tarsel;
using namespace tarsel::test;

namespace {

class BasketHistoryTest : public CollectionWindow {
protected:
    BasketHistoryTest() {
        makePictures({"d.png", "a.png", "c.png", "b.png"});
        addScan();
        for (const char* name : {"d.png", "a.png", "c.png", "b.png"})
            pages.subAddEntryToListView(picture(name));
    }

    void addScan() {
        makeDocument(picture("scan.tif"),
                     {{{9, 7}, qRgb(1, 1, 1)}, {{5, 6}, qRgb(2, 2, 2)}, {{3, 4}, qRgb(3, 3, 3)}});
        pages.subAddEntryToListView(picture("scan.tif"));
    }

    /// Rows with all that they show; a row whose file or picture is not its own fails the test.
    QString state() {
        QStringList rows;
        for (int i = 0; i < lvPages.count(); ++i) {
            const ListRow& row = lvPages.row(i);
            EXPECT_TRUE(QFile::exists(row.tag)) << row.tag.toStdString();
            const auto [known, isNew] = m_pictures.emplace(row.tag, pictureAt(ilPages, row.icon));
            EXPECT_TRUE(isNew || known->second == pictureAt(ilPages, row.icon)) << row.tag.toStdString();
            rows << row.text + QLatin1Char('|') + row.tag + QLatin1Char('|') +
                        row.subItems.join(QLatin1Char(','));
        }
        return rows.join(QLatin1Char('\n'));
    }

    Basket pages{lists, settings};

private:
    std::map<QString, Picture> m_pictures;
};

} // namespace

TEST_F(BasketHistoryTest, WhateverWasDoneIsUndoneAndDoneAgainStepByStep) {
    using enum BasketHistory::Kind;
    for (unsigned seed = 0; seed < 40; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        const auto below = [&](int limit) { return int(random() % unsigned(std::max(1, limit))); };
        std::vector<QString> states{state()};
        size_t now = 0;
        int newBaskets = 0;
        for (int step = 0; step < 40; ++step) {
            for (int row = 0; row < lvPages.count(); ++row)
                lvPages.select(row, below(3) == 0);
            const int row = below(lvPages.count());
            if (!lvPages.isEmpty())
                lvPages.setFocusedRow(row);
            const QString text = QString::number(step);
            const std::function<void()> changes[] = {
                [&] { pages.cmdPagesDelete(); },
                [&] { pages.MoveRowsTo(below(lvPages.count())); },
                [&] { lvPages.setData(lvPages.index(row, 0), text, Qt::EditRole); },
                [&] { lvPages.isEmpty() ? void() : pages.describe(row, text); },
                [&] { pages.history().undoable() == Sort ? void() : lvPages.SortByColumn(below(2)); },
                [&] { lvPages.isEmpty() || ++newBaskets > 3 ? void() : pages.cmdPagesNew(); },
            };
            if (const int choice = below(14); choice < 6) {
                changes[choice]();
                if (state() != states[now]) {
                    states.resize(++now);
                    states.push_back(state());
                }
            } else if (choice < 11) {
                now -= now > 0 ? 1 : 0;
                pages.undo(); // nothing at the first state
            } else if (now + 1 < states.size()) {
                ++now;
                pages.redo();
            }
            ASSERT_EQ(state(), states[now]) << "step " << step;
        }
        while (pages.history().undoable())
            pages.undo();
        ASSERT_EQ(state(), states[0]);
    }
}

TEST_F(BasketHistoryTest, RemovedPagesComeBackBesideThoseAddedSinceAndTheirFilesGoWithTheHistory) {
    const QString undoFolder = temporaryFolder(settings.programFolder) + QStringLiteral("Undo");
    std::optional<Basket> own(std::in_place, lists, settings);
    lvPages.selectOnly(1);
    own->cmdPagesDelete();
    EXPECT_EQ(lvPages.row(lvPages.selectedIndex()).text, QStringLiteral("scan.tif3"));
    own->cmdPagesNew();
    EXPECT_TRUE(pageFiles().isEmpty());
    addScan(); // under the same names
    const auto pixel = [&](int row) {
        return pictureAt(ilPages, lvPages.row(row).icon).view().pixel(20, 15)[0];
    };
    own->undo();
    own->undo();
    EXPECT_EQ(texts(lvPages),
              "scan.tif1 scan.tif2 scan.tif3 d.png a.png c.png b.png scan.tif1 scan.tif2 scan.tif3");
    EXPECT_EQ(panel("queue"), "10 file(s) in basket");
    EXPECT_EQ(lvPages.selectedRows(), std::vector<int>{1});
    for (const int row : {0, 1, 2, 7, 8, 9}) {
        ImageBox box;
        box.LoadFromFile(lvPages.row(row).tag);
        EXPECT_EQ(box.PixelColor(0, 0) & 255, Color(row % 7 + 1)) << row;
        EXPECT_EQ(pixel(row), row % 7 + 1);
    }
    for (int i = 0; i < 5; ++i) {
        own->cmdPagesNew();
        addScan();
    }
    EXPECT_EQ(QDir(undoFolder).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 3);
    own.reset();
    EXPECT_FALSE(QDir(undoFolder).exists());
    EXPECT_EQ(pageFiles().size(), 3) << "those of the rows";
    QDir().mkpath(undoFolder + QStringLiteral("/7"));
    writeBytes(undoFolder + QStringLiteral("/7/scan1_2.tif"), "of a run that crashed");
    deleteAllPageFilesSetAside(settings.programFolder);
    EXPECT_FALSE(QDir(undoFolder).exists());
}

TEST_F(BasketHistoryTest, AcquiredPicturesThatNoBasketNamesOutliveNewBasketAndComeBackWithTheLastOne) {
    const QString temporary = temporaryFolder(settings.programFolder);
    const auto acquire = [&](const char* name) {
        const QString path = temporary + QLatin1String(name);
        acquiredFiles::list({path}, true);
        makeDocument(path, {{{4, 4}, qRgb(5, 5, 5)}});
        return path;
    };
    const auto beside = [&] {
        QStringList names;
        for (const QString& path : lastBasket::acquiredBeside(settings.programFolder))
            names << QFileInfo(path).fileName();
        return names.join(u' ').toStdString();
    };
    pages.cmdPagesNew();
    for (const char* name : {"1_1.tif", "2_2.tif", "3_3.tif"})
        pages.subAddEntryToListView(acquire(name));
    acquire("4_4.tif"); // still to be added
    acquire("5_5.tif");
    EXPECT_EQ(beside(), "1_1.tif 2_2.tif 3_3.tif 4_4.tif 5_5.tif") << "after a kill now";
    lvPages.selectOnly(1);
    pages.cmdPagesDelete();
    EXPECT_EQ(beside(), "1_1.tif 3_3.tif 4_4.tif 5_5.tif");
    pages.undo();
    EXPECT_EQ(beside(), "1_1.tif 2_2.tif 3_3.tif 4_4.tif 5_5.tif");
    pages.redo();
    pages.cmdPagesNew();
    EXPECT_EQ(beside(), "4_4.tif 5_5.tif");
    EXPECT_EQ(pageFiles().join(u' ').toStdString(), "4_4.tif 5_5.tif acquired.txt");
    pages.undo();
    EXPECT_EQ(beside(), "1_1.tif 3_3.tif 4_4.tif 5_5.tif");
    EXPECT_TRUE(QFile::exists(temporary + QStringLiteral("2_2.tif")));

    lastBasket::keep(lvPages, {}, settings.programFolder);
    EXPECT_EQ(beside(), "4_4.tif 5_5.tif");
    pages.empty(); // as for a basket file, and whatever came then is no reason to delete those of before
    EXPECT_EQ(beside(), "4_4.tif 5_5.tif");
    pages.cmdPagesNew();
    EXPECT_TRUE(QFile::exists(temporary + QStringLiteral("1_1.tif")));
    EXPECT_TRUE(lastBasket::reopen(pages, lists, settings.programFolder));
    EXPECT_EQ(texts(lvPages), "1_1.tif 3_3.tif 4_4 5_5");

    const QStringList listed = acquiredFiles::listed(temporary);
    lvPages.selectOnly(0);
    pages.cmdPagesDelete();
    EXPECT_EQ(acquiredFiles::listed(temporary).size(), listed.size() - 1);
    EXPECT_TRUE(lastBasket::reopen(pages, lists, settings.programFolder));
    EXPECT_EQ(texts(lvPages), "1_1.tif 3_3.tif 4_4 5_5");
    pages.empty();
    pages.cmdPagesNew();
    EXPECT_TRUE(QFile::exists(temporary + QStringLiteral("1_1.tif")))
        << "a row again, and removed by nobody since";

    bool stops = true;
    desktop.onYield = [&] {
        if (std::exchange(stops, false))
            pages.stopAdding();
    };
    EXPECT_TRUE(lastBasket::reopen(pages, lists, settings.programFolder));
    desktop.onYield = nullptr;
    EXPECT_FALSE(texts(lvPages).ends_with("5_5")) << "what comes behind a stop, the next one brings";
    pages.empty();
    pages.subAddEntryToListView(temporary + QStringLiteral("./4_4.tif"));
    lastBasket::keep(lvPages, {}, settings.programFolder);
    EXPECT_TRUE(lastBasket::reopen(pages, lists, settings.programFolder));
    EXPECT_EQ(texts(lvPages), "4_4.tif 1_1 3_3 5_5") << "each once, by whichever path";
}

TEST_F(BasketHistoryTest, ADamagedBasketOfTheLastSessionIsPutAsideAndNoError) {
    const QString file = settings.programFolder + QStringLiteral("/last-basket.ibd");
    writeBytes(file, "\"/a.jpg\",\"\"\r\n\"/b.jpg");
    const QString page = temporaryFolder(settings.programFolder) + QStringLiteral("1_1.tif");
    acquiredFiles::list({page}, true);
    makeDocument(page, {{{4, 4}, qRgb(5, 5, 5)}});
    QString damaged;
    EXPECT_FALSE(lastBasket::reopen(pages, lists, settings.programFolder, &damaged));
    EXPECT_EQ(damaged, file + QStringLiteral(".damaged"));
    EXPECT_TRUE(QFile::exists(damaged) && !QFile::exists(file));
    EXPECT_EQ(lvPages.row(lvPages.count() - 1).text, QStringLiteral("1_1"))
        << "a page of a session that was killed";
    EXPECT_TRUE(lastBasket::reopen(pages, lists, settings.programFolder, &damaged) && damaged.isEmpty());
}

TEST_F(BasketHistoryTest, TheLastBasketKeepsEachDescriptionAndTitleWithItsPicture) {
    const auto shown = [&] {
        QStringList rows;
        for (int row = 0; row < lvPages.count(); ++row)
            rows << lvPages.row(row).text + u'=' + lvPages.subItem(row, BasketColumn::Description);
        return rows.join(u' ').toStdString();
    };
    const auto endAndBegin = [&] {
        lastBasket::keep(lvPages, pages.awaited(), settings.programFolder);
        pages.cmdPagesNew();
        EXPECT_TRUE(lastBasket::reopen(pages, lists, settings.programFolder));
    };
    for (int row = 0; row < lvPages.count(); ++row)
        pages.describe(row, QString::number(row));
    lvPages.setText(1, QStringLiteral("harbour"));
    lvPages.setText(4, QStringLiteral("a.b"));
    lvPages.setText(5, QStringLiteral("c\"c"));
    makePictures({"q\"q.png"});
    pages.subAddEntryToListView(picture("q\"q.png"));
    endAndBegin();
    const std::string all = "scan.tif1=0 harbour=1 scan.tif3=2 d.png=3 a.b=4 c''c=5 b.png=6";
    EXPECT_EQ(shown(), all) << "without the name that the format can't hold";

    QFile::rename(picture("a.png"), picture("away"));
    endAndBegin();
    EXPECT_EQ(shown(), "scan.tif1=0 harbour=1 scan.tif3=2 d.png=3 c''c=5 b.png=6");
    EXPECT_EQ(pages.awaited().size(), 1u);
    QFile::rename(picture("away"), picture("a.png"));
    pages.subAddEntryToListView(picture("a.png")); // by the user, who then types
    lvPages.setText(lvPages.count() - 1, QStringLiteral("mine"));
    endAndBegin();
    EXPECT_TRUE(shown().ends_with("mine=4")) << shown();
    lvPages.setText(lvPages.count() - 1, QStringLiteral("a.b"));
    lvPages.selectOnly(lvPages.count() - 1);
    pages.MoveRowsTo(4);
    endAndBegin();
    QFile::rename(picture("a.png"), picture("away"));
    endAndBegin();
    pages.cmdPagesNew();
    EXPECT_TRUE(pages.awaited().empty());
    pages.undo(); // the missing one comes back with its basket
    endAndBegin();
    QFile::rename(picture("away"), picture("a.png"));
    endAndBegin();
    EXPECT_EQ(shown(), all) << "it is there again, in its place";

    lastBasket::keep(lvPages, pages.awaited(), settings.programFolder);
    pages.cmdPagesNew();
    desktop.onYield = [&] { // the session ends in between
        if (!lvPages.isEmpty() && !pages.wasStopped())
            lastBasket::keep(lvPages, pages.awaited(), settings.programFolder);
        pages.stopAdding();
    };
    EXPECT_TRUE(lastBasket::reopen(pages, lists, settings.programFolder));
    desktop.onYield = nullptr;
    endAndBegin();
    EXPECT_EQ(shown(), all);

    desktop.onYield = [&] { // and here the user is quicker
        if (lvPages.count() < 7)
            return;
        lvPages.setText(3, QStringLiteral("quick"));
        pages.describe(3, QStringLiteral("typed"));
    };
    endAndBegin();
    desktop.onYield = nullptr;
    EXPECT_NE(shown().find(" quick=typed "), std::string::npos) << shown();

    for (int row = 0; row < lvPages.count(); ++row)
        pages.describe(row, QString());
    endAndBegin();
    EXPECT_EQ(shown(), "scan.tif1= harbour= scan.tif3= quick= a.b= c''c= b.png=");
    QFile::remove(settings.programFolder + QStringLiteral("/last-basket-titles.ibd"));
    EXPECT_TRUE(lastBasket::reopen(pages, lists, settings.programFolder));
    EXPECT_EQ(shown(), "scan1= scan2= scan3= d= a= c= b=") << "as if added from the folder list";
}

TEST_F(BasketHistoryTest, TextsOfTheLastBasketStayWithTheirPagesWhateverTheirOrder) {
    const auto endAndBegin = [&] {
        lastBasket::keep(lvPages, {}, settings.programFolder);
        lvPages.clear();
        EXPECT_TRUE(lastBasket::reopen(pages, lists, settings.programFolder));
    };
    pages.empty();
    addScan();
    pages.describe(2, QStringLiteral("the end"));
    lvPages.setText(1, QStringLiteral("middle"));
    lvPages.selectOnly(2);
    pages.MoveRowsTo(0);
    lvPages.selectOnly(1);
    pages.cmdPagesDelete();
    EXPECT_EQ(texts(lvPages), "scan.tif3 middle");
    endAndBegin();
    EXPECT_EQ(texts(lvPages), "scan1 middle scan.tif3") << "the page that was removed has its first title";
    for (const int row : {0, 1, 2})
        EXPECT_EQ(lvPages.subItem(row, BasketColumn::Description),
                  row == 2 ? QStringLiteral("the end") : QString());

    const auto filesOfPages = [&] {
        return QDir(temporaryFolder(settings.programFolder)).entryList({QStringLiteral("scan.tif*")}).size();
    };
    for (int wait = 0; wait < 1000 && filesOfPages() > 3; ++wait)
        QThread::msleep(10);
    EXPECT_EQ(filesOfPages(), 3) << "those of the session before go";
    for (const int row : {0, 1, 2})
        EXPECT_TRUE(QFile::exists(lvPages.row(row).tag));

    const QString titles = settings.programFolder + QStringLiteral("/last-basket-titles.ibd");
    lastBasket::keep(lvPages, {}, settings.programFolder);
    writeBytes(titles, readWholeFile(titles).chopped(20));
    QString damaged;
    EXPECT_TRUE(lastBasket::reopen(pages, lists, settings.programFolder, &damaged));
    EXPECT_EQ(damaged, titles + QStringLiteral(".damaged"));
    EXPECT_EQ(texts(lvPages), "scan1 scan2 scan3");
}
