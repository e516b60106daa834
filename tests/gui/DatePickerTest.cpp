// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/DayGrid.h"
#include "controls/ucDateTimePicker.h"
#include "tests/gui/WindowTest.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QTest>

namespace tarsel::test {

namespace {

/// A calendar of which a user has chosen 31 January 2004, a Saturday.
class DatePicker : public WindowTest {
protected:
    void show() {
        picker = std::make_unique<ucDateTimePicker>();
        picker->setDateSelected(QDate(2004, 1, 31).startOfDay());
        picker->show();
        picker->setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowActive(picker.get()));
    }
    QRect cellOf(const QString& day) {
        return child<DayGrid>(*picker, "lblDay").cellOf(QDate::fromString(day, Qt::ISODate));
    }
    /// Clicks on buttons and days, and keys wherever the focus is.
    void act(const char* inputs) {
        for (const QString& input : QString::fromLatin1(inputs).split(u' ')) {
            if (auto* button = picker->findChild<QAbstractButton*>(input); button) {
                QTest::mouseClick(button, Qt::LeftButton);
            } else if (input.size() == 10) {
                QTest::mouseClick(&child<DayGrid>(*picker, "lblDay"), Qt::LeftButton, {},
                                  cellOf(input).center());
            } else {
                const QKeyCombination key = QKeySequence(input)[0];
                QWidget* panel = QApplication::activePopupWidget();
                QTest::keyClick((panel ? panel : picker.get())->focusWidget(), key.key(),
                                key.keyboardModifiers());
            }
        }
    }
    QString taken() const { return picker->DateSelected().date().toString(Qt::ISODate); }

    std::unique_ptr<ucDateTimePicker> picker;
};

} // namespace

TEST_F(DatePicker, TakesADayByMouseAndByKeys) {
    const QString today = QDate::currentDate().toString(Qt::ISODate);
    const std::pair<const char*, QString> cases[] = {
        {"Alt+Down Left Up Return", QStringLiteral("2004-01-23")},
        {"F4 PgDown PgDown PgUp Return", QStringLiteral("2004-02-29")},
        {"F4 Home Right End Return", QStringLiteral("2004-01-31")},
        {"F4 Home Esc", QStringLiteral("2004-01-31")},
        {"F4 Tab Return Tab Return", today},
        {"F4 Home Tab Shift+Tab Return", QStringLiteral("2004-01-01")},
        {"Up Up Down", QStringLiteral("2004-02-01")},
        {"X Return", QStringLiteral("2004-01-31")},
        {"btnDrop imgRight 2004-02-10 btnOK", QStringLiteral("2004-02-10")},
        {"btnDrop imgLeft btnToday btnOK", today},
    };
    for (const auto& [inputs, day] : cases) {
        show();
        act(inputs);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << inputs;
        EXPECT_EQ(taken(), day) << inputs;
    }
}

TEST_F(DatePicker, ShowsItsMonthFromTheFirstDayOfTheWeekOn) {
    show();
    act("btnDrop");
    for (const auto& [first, column] : {std::pair(1, 6), {2, 5}, {7, 0}}) {
        picker->setFirstDayOfWeek(first);
        EXPECT_EQ(cellOf(QStringLiteral("2004-01-31")).x() * 7 / child<DayGrid>(*picker, "lblDay").width(),
                  column);
    }
    EXPECT_TRUE(cellOf(QStringLiteral("2004-02-01")).isEmpty());
    picker->setShowNonMonthDays(true);
    act("2004-02-01");
    EXPECT_EQ(child<QLabel>(*picker, "lblDateTitle").text(), QStringLiteral("February 2004"));
    EXPECT_EQ(child<QLabel>(*picker, "lblDateDescription").text(), QStringLiteral("1 Feb 2004"));
    EXPECT_EQ(taken(), QStringLiteral("2004-01-31")) << "before OK";
}

} // namespace tarsel::test
