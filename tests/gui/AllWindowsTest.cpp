// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/gui/AllWindows.h"
#include "controls/FormScrollArea.h"
#include "tests/gui/FontSize.h"

#include <QAccessible>
#include <QApplication>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>

namespace tarsel::test {

namespace {

/// The Tab key comes to the buttons below a form after everything else.
void expectBottomRowLast(QWidget& form) {
    const QPushButton* lowest = nullptr;
    for (const char* name : {"cmdCancel", "cmdExit", "cmdClose"})
        lowest = lowest ? lowest : form.findChild<QPushButton*>(QLatin1String(name));
    bool reached = false;
    QString previous;
    for (QWidget* next = form.nextInFocusChain(); lowest && next != &form; next = next->nextInFocusChain()) {
        if (!next->isVisible() || !(next->focusPolicy() & Qt::TabFocus) || next->window() != &form)
            continue;
        const bool below = next->mapTo(&form, QPoint()).y() >= lowest->y();
        EXPECT_TRUE(below || !reached)
            << next->objectName().toStdString() << " after " << previous.toStdString();
        previous = next->objectName();
        reached = below;
    }
}

} // namespace

TEST_F(AllWindows, NameEveryControlForScreenReadersAndGiveEachAMnemonicOfItsOwn) {
    const auto check = [](QWidget& form) {
        expectMnemonicsOfTheirOwn(form, shownWidgets(form));
        for (QWidget* widget : shownWidgets(form)) {
            if (widget->focusPolicy() == Qt::NoFocus || widget->focusProxy())
                continue;
            const auto* spoken = QAccessible::queryAccessibleInterface(widget);
            const std::string name =
                widget->metaObject()->className() + (" " + widget->objectName().toStdString());
            EXPECT_NE(spoken->text(QAccessible::Name).toStdString(), "") << name;
            EXPECT_TRUE(spoken->role() != QAccessible::Client && spoken->role() != QAccessible::NoRole)
                << name;
        }
        expectBottomRowLast(form);
        for (const FormScrollArea* area : form.findChildren<FormScrollArea*>())
            EXPECT_FALSE(area->verticalScrollBar()->isVisible()) << "though the screen has room";
    };
    forEach(check);
    forEachTask(check);
}

/// With a font of 14 points on a small screen, and with 20 points.
TEST_F(AllWindows, CutNoLabelOrButtonWithALargeFont) {
    for (const int points : {14, 20}) {
        const FontSize large(points);
        forEach([&](QWidget& form) {
            constexpr QSize small(784, 552);
            if (points == 14 && &form != &window()) {
                // Again, where the form has just taken its own size late.
                const auto isSmall = [&] {
                    form.resize(small);
                    QCoreApplication::processEvents();
                    return form.size() == small;
                };
                EXPECT_TRUE(waitFor(isSmall)) << "held open by its contents";
            }
            for (const QWidget* widget : shownWidgets(form))
                expectNotCut(*widget);
        });
        close();
    }
}

/// Also run on a screen of 400 x 400.
TEST_F(AllWindows, FitTheScreenAndScrollWhatIsLarger) {
    forEach([&](QWidget& form) {
        QCoreApplication::processEvents();
        EXPECT_TRUE(&form == &window() || form.screen()->availableGeometry().contains(form.geometry()))
            << form.x() << ", " << form.y() << ": " << form.width() << " x " << form.height();
    });
}

TEST_F(AllWindows, OnAScreenOf1366PixelsAtTwiceTheSizeTheMainWindowHasRoom) {
    constexpr QSize small(683, 384), frame(16, 48);
    if (QGuiApplication::primaryScreen()->size() != small)
        GTEST_SKIP() << "ctest runs it on such a screen";
    startWithBasket(2);
    window().preview().ShowRow(basket(), 0);
    ASSERT_TRUE(waitFor([&] { return window().workspace().ibMain.HasImage(); }));
    for (const char* state : {"browsing", "editing"}) {
        QCoreApplication::processEvents();
        const QSize least = window().minimumSizeHint();
        EXPECT_TRUE(least.width() <= small.width() - frame.width() &&
                    least.height() <= small.height() - frame.height())
            << state << ": " << least.width() << " x " << least.height();
        click(window(), "CmdPreviewEdit");
    }
}

} // namespace tarsel::test
