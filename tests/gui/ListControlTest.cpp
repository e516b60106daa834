// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ListControl.h"
#include "base/ListView.h"

#include <QHeaderView>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>
#include <gtest/gtest.h>
#include <random>

namespace tarsel::test {

namespace {

class ListControlTest : public testing::Test {
protected:
    void fill(int rows) {
        for (int i = 0; i < rows; ++i) {
            ListRow row;
            row.text = QStringLiteral("row%1").arg((i * 7) % rows, 5, 10, QLatin1Char('0'));
            row.subItems = {QString::number(i)};
            list.add(row);
        }
    }
    std::vector<int> shownSelection() {
        QCoreApplication::processEvents();
        std::vector<int> rows;
        for (const QModelIndex& index : control.view()->selectionModel()->selectedRows())
            rows.push_back(index.row());
        std::sort(rows.begin(), rows.end());
        return rows;
    }

    ListView list{{QStringLiteral("Name"), QStringLiteral("Number")}};
    ListControl control{list};
};

} // namespace

TEST_F(ListControlTest, SelectionStaysInStepUnderAnyMixOfChanges) {
    fill(23);
    std::mt19937 random(5);
    for (int step = 0; step < 300; ++step) {
        const int row = list.isEmpty() ? -1 : int(random() % unsigned(list.count()));
        QItemSelectionModel* shown = control.view()->selectionModel();
        switch (random() % 8) {
        case 0:
            list.select(row, random() % 2);
            break;
        case 1:
            list.selectAll();
            break;
        case 2:
            list.selectOnly(row);
            break;
        case 3:
            shown->select(list.index(row, 0), QItemSelectionModel::Toggle | QItemSelectionModel::Rows);
            break;
        case 4:
            shown->setCurrentIndex(list.index(row, 0),
                                   QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
            break;
        case 5:
            list.SortByColumn(int(random() % 2));
            break;
        case 6:
            if (list.count() > 5)
                list.remove(row);
            break;
        case 7:
            control.setForm(random() % 2 ? ListControl::Form::Details : ListControl::Form::Thumbnails);
            break;
        }
        ASSERT_EQ(shownSelection(), list.selectedRows()) << "step " << step;
    }
}

TEST_F(ListControlTest, SelectingTenThousandRowsDoesNotTakeAStepForEachPair) {
    fill(10000);
    control.view()->selectAll();
    EXPECT_EQ(list.selectedRows().size(), 10000u);
    for (int row = 0; row < 10000; row += 2)
        list.select(row, false);
    EXPECT_EQ(shownSelection().size(), 5000u);
}

TEST_F(ListControlTest, AClickOnAHeaderSortsAndTheNextOneReverses) {
    fill(5);
    control.show();
    auto* header = control.findChild<QTreeView*>()->header();
    const auto clickHeader = [&](int column) {
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, {header->sectionPosition(column) + 10, 5});
    };
    clickHeader(0);
    EXPECT_EQ(list.row(0).text.toStdString(), "row00000");
    clickHeader(0);
    EXPECT_EQ(list.row(0).text.toStdString(), "row00004");
    clickHeader(1);
    EXPECT_EQ(list.subItem(0, 1).toStdString(), "0");
}

TEST_F(ListControlTest, KeysLeaveAsSignals) {
    fill(3);
    control.show();
    QSignalSpy enter(&control, &ListControl::enterPressed);
    QSignalSpy arrow(&control, &ListControl::arrowReleased);
    QSignalSpy remove(&control, &ListControl::deleteReleased);
    for (const ListControl::Form form : {ListControl::Form::Details, ListControl::Form::Thumbnails}) {
        control.setForm(form);
        QTest::keyClick(control.view(), Qt::Key_Return);
        QTest::keyClick(control.view(), Qt::Key_Down);
        QTest::keyClick(control.view(), Qt::Key_Delete);
    }
    EXPECT_EQ(enter.count(), 2);
    EXPECT_EQ(arrow.count(), 2);
    EXPECT_EQ(remove.count(), 2);
}

} // namespace tarsel::test
