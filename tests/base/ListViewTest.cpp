// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ListView.h"
#include "base/TrappedError.h"
#include "tests/support/ErrorNumberOf.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <gtest/gtest.h>
#include <random>

using namespace tarsel;
using test::errorNumberOf;

namespace {

ListRow rowOf(const QString& text, const QStringList& subItems = {}) {
    return {.text = text, .tag = {}, .key = {}, .subItems = subItems, .iconKey = {}};
}

ListRow rowOf(const char* text, const char* subItem = "") {
    return rowOf(QString::fromUtf8(text), {QString::fromUtf8(subItem)});
}

QString textsOf(const ListView& list) {
    QString texts;
    for (int i = 0; i < list.count(); ++i)
        texts += list.row(i).text;
    return texts;
}

class List : public testing::Test {
protected:
    ListView list{{QStringLiteral("Name"), QStringLiteral("Size"), QStringLiteral("Path")}};
    // Fails the program when the model's signals don't fit what happens to its rows.
    QAbstractItemModelTester tester{&list, QAbstractItemModelTester::FailureReportingMode::Fatal};
    QSignalSpy selections{&list, &ListView::selectionChanged};
};

} // namespace

TEST_F(List, ARowOutOfRangeIsASubscriptError) {
    EXPECT_EQ(errorNumberOf([&] { list.row(0); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(errorNumberOf([&] { list.remove(0); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(errorNumberOf([&] { list.insert(1, {}); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(errorNumberOf([&] { list.setSubItem(-1, 1, {}); }), ErrorNumber::SubscriptOutOfRange);
    list.add({});
    EXPECT_EQ(errorNumberOf([&] { list.setSubItem(0, 0, {}); }), ErrorNumber::SubscriptOutOfRange);
}

TEST_F(List, SizesSortAsTextAndASecondClickTurnsTheOrder) {
    list.add(rowOf("a", "9.00KB"));
    list.add(rowOf("B", "10.0KB"));
    list.add(rowOf("c", "9.00KB"));
    const std::pair<int, const char*> clicks[] = {{1, "Bac"}, {1, "acB"}, {0, "aBc"}, {0, "cBa"}, {0, "aBc"}};
    for (const auto& [column, texts] : clicks) {
        list.SortByColumn(column);
        EXPECT_EQ(textsOf(list).toStdString(), texts);
    }
    EXPECT_EQ(list.sortOrder(), Qt::AscendingOrder);
}

TEST_F(List, SelectionFocusAndViewsFollowTheirRowsThroughASort) {
    for (const char* text : {"d", "b", "c", "a"})
        list.add(rowOf(text));
    list.selectOnly(0);
    list.select(2);
    const QPersistentModelIndex shown = list.index(1, 0);
    list.SortByColumn(0);
    EXPECT_EQ(list.selectedRows(), (std::vector<int>{2, 3}));
    EXPECT_EQ(list.selectedIndex(), 3);
    EXPECT_EQ(shown.data().toString(), QStringLiteral("b"));
    list.remove(0);
    EXPECT_EQ(list.selectedIndex(), 2);
    list.remove(2);
    EXPECT_EQ(list.focusedRow(), -1);
    EXPECT_EQ(list.selectedIndex(), 1); // the first selected one when the focused row is gone
}

TEST_F(List, ChangesOfTheSelectionAreSignalledOnce) {
    list.add(rowOf("a"));
    list.add(rowOf("b"));
    EXPECT_EQ(selections.count(), 0);
    list.selectOnly(1);
    list.selectOnly(1);
    list.select(1);
    EXPECT_EQ(selections.count(), 1);
    list.selectAll();
    EXPECT_EQ(selections.count(), 2);
    list.remove(0);
    EXPECT_EQ(selections.count(), 3);
    list.clear();
    EXPECT_EQ(selections.count(), 4);
    EXPECT_EQ(list.selectedIndex(), -1);
    list.clear();
    EXPECT_EQ(selections.count(), 4);
}

TEST_F(List, OnlyTheTextColumnCanBeEditedAndOnlyWhenAllowed) {
    list.add(rowOf("a", "x"));
    EXPECT_FALSE(list.setData(list.index(0, 0), QStringLiteral("b"), Qt::EditRole));
    list.setTextEditable(true);
    EXPECT_FALSE(list.setData(list.index(0, 1), QStringLiteral("y"), Qt::EditRole));
    EXPECT_TRUE(list.setData(list.index(0, 0), QStringLiteral("b"), Qt::EditRole));
    EXPECT_EQ(textsOf(list), QStringLiteral("b"));
}

TEST_F(List, IconsShowOnlyWhileAPictureListIsAttached) {
    ImageList images;
    ListRow row = rowOf("a");
    row.icon = images.add(QStringLiteral("picture"));
    list.add(row);
    EXPECT_FALSE(list.index(0, 0).data(Qt::DecorationRole).isValid());
    list.attachImages(&images);
    EXPECT_EQ(list.index(0, 0).data(Qt::DecorationRole).toString(), QStringLiteral("picture"));
    list.setIcon(0, 7);
    EXPECT_FALSE(list.index(0, 0).data(Qt::DecorationRole).isValid());
    list.attachImages(nullptr);
}

TEST(ListView, ManyScatteredRowsAreRemovedAndPutBackInOneStep) {
    ListView list;
    std::vector<int> even;
    std::vector<PlacedRow> placed;
    for (int i = 0; i < 300; ++i) {
        list.add(rowOf(QString::number(i)));
        if (i % 2 == 0) {
            even.push_back(i);
            placed.push_back({i, list.row(i)});
        }
    }
    const QString before = textsOf(list);
    list.selectOnly(151);
    QSignalSpy steps(&list, &QAbstractItemModel::modelReset);
    list.remove(even);
    EXPECT_TRUE(textsOf(list).startsWith(QStringLiteral("1357911")));
    EXPECT_EQ(list.selectedIndex(), 75);
    list.insert(placed);
    EXPECT_EQ(textsOf(list), before);
    EXPECT_EQ(list.selectedIndex(), 151);
    EXPECT_EQ(steps.count(), 2);
}

/// Compares the indexed search with a walk over the rows, whatever was done to the list.
TEST(ListView, TheIndexedSearchFindsWhatAWalkFinds) {
    ListView list;
    std::mt19937 random(7);
    const auto below = [&](int limit) { return int(random() % unsigned(limit)); };
    const auto someText = [&] { return below(8) == 0 ? QString() : QString::number(below(30)); };
    for (int step = 0; step < 4000; ++step) {
        switch (list.count() < 5 ? 0 : below(7)) {
        case 0:
        case 1:
            list.add(rowOf(someText(), {someText(), someText()}));
            break;
        case 2:
            list.insert(below(list.count()), rowOf(QString(), {someText()}));
            break;
        case 3:
            list.remove(below(list.count()));
            break;
        case 4:
            list.setSubItem(below(list.count()), 1 + below(2), someText());
            break;
        case 5:
            list.SortByColumn(below(3));
            break;
        default:
            if (below(50) == 0)
                list.clear();
        }
        const int number = 1 + below(2);
        const QString wanted = someText();
        int walked = -1;
        for (int i = list.count() - 1; i >= 0; --i)
            walked = list.subItem(i, number) == wanted ? i : walked;
        ASSERT_EQ(list.findSubItem(number, wanted), walked) << "step " << step;
    }
}
