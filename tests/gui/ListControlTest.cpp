// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ListControl.h"
#include "base/ListView.h"
#include "controls/PaleText.h"
#include "controls/PictureIcon.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
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

TEST_F(ListControlTest, HintsAndPlaceholdersHaveAContrastOfFourAndAHalfInEveryTheme) {
    const auto& hint = *control.findChild<QLabel*>();
    EXPECT_EQ(hint.textFormat(), Qt::PlainText) << "for names of folders";
    EXPECT_NEAR(contrastOf(Qt::black, Qt::white), 21, 0.001);
    QLineEdit field;
    keepPlaceholderReadable(field);
    for (const auto& [text, base] :
         {std::pair("black", "white"), {"white", "black"}, {"#c8c8c8", "#404040"}}) {
        QPalette palette; // without a colour for placeholders
        palette.setColor(QPalette::Text, QColor(text));
        palette.setColor(QPalette::Base, QColor(base));
        control.setPalette(palette);
        field.setPalette(palette);
        EXPECT_GE(contrastOf(hint.palette().color(QPalette::WindowText), QColor(base)), 4.5) << base;
        EXPECT_GE(contrastOf(field.palette().color(QPalette::PlaceholderText), QColor(base)), 4.5) << base;
    }
}

TEST_F(ListControlTest, SelectionStaysInStepUnderAnyMixOfChanges) {
    fill(23);
    std::mt19937 random(5);
    QItemSelectionModel* shown = nullptr;
    int row = 0;
    const auto at = [&] { return list.index(row, 0); };
    using Flags = QItemSelectionModel;
    const std::function<void()> changes[] = {
        [&] { list.select(row, random() % 2); },
        [&] { list.selectAll(); },
        [&] { list.selectOnly(row); },
        [&] { shown->select(at(), Flags::Toggle | Flags::Rows); },
        [&] { shown->setCurrentIndex(at(), Flags::ClearAndSelect | Flags::Rows); },
        [&] { list.SortByColumn(int(random() % 2)); },
        [&] { list.count() > 5 ? list.remove(row) : list.selectAll(); },
        [&] { control.setForm(random() % 2 ? ListControl::Form::Details : ListControl::Form::Thumbnails); },
    };
    for (int step = 0; step < 300; ++step) {
        row = int(random() % unsigned(list.count()));
        shown = control.view()->selectionModel();
        changes[random() % 8]();
        ASSERT_EQ(shownSelection(), list.selectedRows()) << "step " << step;
    }
}

TEST_F(ListControlTest, AGrowingListIsNeverPaintedEmpty) {
    control.resize(600, 300);
    control.show();
    for (const ListControl::Form form : {ListControl::Form::Details, ListControl::Form::Thumbnails}) {
        control.setForm(form);
        fill(1);
        QCoreApplication::processEvents();
        const QRect row = control.view()->visualRect(list.index(0, 0));
        const auto painted = [&] { return control.view()->viewport()->grab(row).toImage(); };
        const QImage before = painted();
        fill(1); // painted before the event loop comes round
        EXPECT_TRUE(painted() == before);
    }
}

TEST_F(ListControlTest, TheRowInViewComesBackWithTheThumbnails) {
    fill(300);
    control.setForm(ListControl::Form::Thumbnails);
    control.resize(300, 200);
    control.show();
    QCoreApplication::processEvents();
    list.selectOnly(200);
    QCoreApplication::processEvents();
    const auto place = [&] { return control.view()->visualRect(list.index(200, 0)); };
    control.view()->scrollTo(list.index(200, 0));
    const QRect before = place();
    control.hide();
    control.resize(2000, 1000);
    control.show();
    control.view()->viewport()->grab(); // lays the rows out in between
    control.resize(300, 200);
    QCoreApplication::processEvents();
    EXPECT_EQ(place(), before);
}

TEST_F(ListControlTest, NamesOfASeriesLookDifferentAlsoWhereTheyAreCut) {
    for (const char* end : {"1", "2"}) {
        ListRow row;
        row.text = QStringLiteral("a long name of a day in summer, %1.jpg").arg(QLatin1String(end));
        list.add(row);
    }
    control.setForm(ListControl::Form::Thumbnails);
    control.resize(600, 300);
    control.show();
    const auto drawn = [&](int row) {
        return control.view()->viewport()->grab(control.view()->visualRect(list.index(row, 0))).toImage();
    };
    EXPECT_EQ(drawn(0).size(), drawn(1).size());
    EXPECT_NE(drawn(0), drawn(1));
}

TEST_F(ListControlTest, MenuKeysAskForTheMenuAtTheRowWithTheFocus) {
    fill(3);
    control.resize(400, 300);
    control.show();
    control.view()->setCurrentIndex(list.index(2, 0));
    const QRect row = control.view()->visualRect(list.index(2, 0));
    QSignalSpy menu(&control, &ListControl::menuWanted);
    QTest::keyClick(control.view(), Qt::Key_F10, Qt::ShiftModifier);
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, {1, 1}, {1, 1});
    QCoreApplication::sendEvent(control.view(), &byKey);
    ASSERT_EQ(menu.count(), 2);
    for (const QList<QVariant>& wanted : menu)
        EXPECT_TRUE(row.contains(control.view()->viewport()->mapFromGlobal(wanted[0].toPoint())));
}

TEST_F(ListControlTest, AHeldArrowKeyShowsItsRowOnceItIsReleased) {
    fill(3);
    QSignalSpy shown(&control, &ListControl::keySelected);
    for (const bool repeats : {true, true, false}) {
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_Down, {}, {}, repeats);
        QCoreApplication::sendEvent(control.view(), &release);
    }
    EXPECT_EQ(shown.count(), 1);
}

TEST_F(ListControlTest, TheFirstArrowSelectsTheRowThatTheFocusCameTo) {
    fill(3);
    control.setForm(ListControl::Form::Details);
    control.show();
    control.view()->selectionModel()->setCurrentIndex(list.index(0, 0), QItemSelectionModel::NoUpdate);
    for (const auto& [key, row] : {std::pair(Qt::Key_Down, 0), {Qt::Key_Down, 1}, {Qt::Key_Home, 0}}) {
        QTest::keyClick(control.view(), key);
        EXPECT_EQ(shownSelection(), std::vector{row}) << key;
    }
    for (const auto& [key, row] : {std::pair(Qt::Key_Home, 0), {Qt::Key_End, 2}}) {
        list.selectOnly(-1);
        QTest::keyClick(control.view(), key);
        EXPECT_EQ(shownSelection(), std::vector{row}) << key;
    }
}

TEST_F(ListControlTest, TypingShowsItsRowAndAShortcutDoesNot) {
    fill(3);
    QSignalSpy shown(&control, &ListControl::keySelected);
    QTest::keyPress(control.view(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyRelease(control.view(), Qt::Key_A); // after Ctrl
    QTest::qWait(400);
    EXPECT_EQ(shown.count(), 0);
    QTest::keyClick(control.view(), Qt::Key_B);
    EXPECT_TRUE(shown.wait());
}

TEST_F(ListControlTest, FilesComeByDropAndPasteAndRowsLeaveAsFilesAndText) {
    fill(1);
    list.setTag(0, QStringLiteral("/some folder/a%b.png"));
    control.acceptFiles();
    control.show();
    const QList<QUrl> files{QUrl::fromLocalFile(list.row(0).tag)};
    QSignalSpy offered(&control, &ListControl::filesOffered);
    list.selectAll();
    QTest::keyClick(control.view(), Qt::Key_C, Qt::ControlModifier);
    const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(copied->text().toStdString(), "row00000\t0");
    EXPECT_EQ(copied->data(QStringLiteral("x-special/gnome-copied-files")).toStdString(),
              "copy\nfile:///some%20folder/a%25b.png");
    QTest::keyClick(control.view(), Qt::Key_V, Qt::ControlModifier);
    const std::unique_ptr<QMimeData> dragged(list.mimeData({list.index(0, 0), list.index(0, 1)}));
    QDragEnterEvent enter({9, 9}, Qt::CopyAction | Qt::MoveAction, dragged.get(), Qt::LeftButton, {});
    QCoreApplication::sendEvent(control.view()->viewport(), &enter);
    QDropEvent drop({9, 9}, Qt::CopyAction | Qt::MoveAction, dragged.get(), Qt::LeftButton, {});
    drop.setDropAction(Qt::MoveAction);
    QCoreApplication::sendEvent(control.view()->viewport(), &drop);
    QCoreApplication::processEvents();
    EXPECT_EQ(drop.dropAction(), Qt::CopyAction) << "the other program must not delete its file";
    ASSERT_EQ(offered.count(), 2);
    for (const QList<QVariant>& arguments : offered)
        EXPECT_EQ(arguments[0].value<QList<QUrl>>(), files);
}

TEST_F(ListControlTest, TheNamesTakeFreeRoomAndAllColumnsFollowTheFont) {
    control.setColumnWidth(0, 80);
    control.setColumnWidth(1, 120);
    control.resize(900, 200);
    control.show();
    const auto* table = control.findChild<QTreeView*>();
    const auto shown = [&] { return std::pair(table->columnWidth(0), table->columnWidth(1)); };
    const auto [name, number] = shown();
    EXPECT_EQ(name + number, table->viewport()->width());
    QFont large = control.font();
    large.setPointSize(large.pointSize() * 2);
    control.setFont(large);
    EXPECT_GT(shown().second, number * 3 / 2);
    control.resize(150, 200);
    QTest::qWait(0);
    EXPECT_GE(shown().first, control.fontMetrics().averageCharWidth() * 15) << "a name stays readable";
    EXPECT_EQ(control.columnWidth(0), 80) << "what is remembered depends neither on the font nor on the room";
    EXPECT_EQ(control.columnWidth(1), 120);
    const QString text = QStringLiteral("12000 X 9000 X 24");
    control.setUsualText(1, text);
    control.setColumnWidth(1, 100);
    EXPECT_GE(shown().second, control.fontMetrics().horizontalAdvance(text) + 6);
    control.setWideColumn(1, true);
    control.setColumnWidth(0, 900);
    QTest::qWait(0);
    EXPECT_EQ(shown().first + shown().second, table->viewport()->width());
    EXPECT_GE(shown().second, shown().first) << "values have half a narrow pane, whatever the font";
}

TEST_F(ListControlTest, APictureOfItsPlacesSizeIsPaintedPixelForPixelAtEveryRatio) {
    for (const double ratio : {1.0, 1.25, 1.5, 1.75, 2.0})
        for (const QSize size : {QSize(40, 40), QSize(41, 37)}) {
            QImage noise(qRound(size.width() * ratio), qRound(size.height() * ratio), QImage::Format_RGB32);
            std::mt19937 random(5);
            for (int y = 0; y < noise.height(); ++y)
                for (int x = 0; x < noise.width(); ++x)
                    noise.setPixel(x, y, 0xFF000000 | random());
            QImage screen(300, 300, QImage::Format_RGB32);
            screen.setDevicePixelRatio(ratio);
            QPainter painter(&screen);
            painter.translate(3, 5);
            pictureIcon(QPixmap::fromImage(noise)).paint(&painter, QRect(QPoint(7, 9), size));
            painter.end();
            const QPoint corner(qRound(10 * ratio), qRound(14 * ratio));
            EXPECT_EQ(screen.copy(QRect(corner, noise.size())).convertToFormat(noise.format()), noise)
                << ratio;
        }
}

TEST_F(ListControlTest, ACellThatIsCutOrOfSeveralLinesShowsItsTextAsToolTip) {
    ListRow row;
    row.text = QString(200, QLatin1Char('x'));
    row.subItems = {QStringLiteral("two\nlines")};
    list.add(row);
    control.resize(600, 200);
    control.show();
    using enum ListControl::Form;
    for (const auto& [form, column] :
         {std::pair(Details, 0), std::pair(Details, 1), std::pair(Thumbnails, 0)}) {
        control.setForm(form);
        QTest::qWait(0);
        const QRect cell = control.view()->visualRect(list.index(0, column));
        QHelpEvent help(QEvent::ToolTip, cell.center(),
                        control.view()->viewport()->mapToGlobal(cell.center()));
        QCoreApplication::sendEvent(control.view()->viewport(), &help);
        EXPECT_EQ(QToolTip::text(), list.index(0, column).data().toString());
        QToolTip::hideText();
        EXPECT_TRUE(form == Thumbnails || cell.height() < 2 * control.fontMetrics().height());
    }
}

} // namespace tarsel::test
