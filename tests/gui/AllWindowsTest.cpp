// SPDX-License-Identifier: GPL-3.0-or-later
#include "configuration/ConfigRecord.h"
#include "controls/ElidedLabel.h"
#include "controls/FormScrollArea.h"
#include "docs/screenshots/SampleDialogs.h"
#include "tasks/TaskColumns.h"
#include "tests/gui/WindowTest.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScopeGuard>
#include <QScreen>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>

namespace tarsel::test {

namespace {

/// The main window and every dialog, with pictures in the basket; forms with tabs once with each tab.
class AllWindows : public WindowTest {
protected:
    void forEach(const std::function<void(QWidget&)>& check) {
        const auto checkTabs = [&](QWidget& shown) {
            SCOPED_TRACE(shown.objectName().toStdString());
            auto* tabs = shown.findChild<QTabWidget*>();
            for (int tab = 0; tab < (tabs ? tabs->count() : 1); ++tab) {
                if (tabs)
                    tabs->setCurrentIndex(tab);
                QCoreApplication::processEvents();
                check(shown);
            }
        };
        startWithBasket(3);
        checkTabs(window());
        SampleDialogs samples(basket(), ConfigRecord);
        for (const auto& dialog : samples.all(&window())) {
            dialog->show();
            checkTabs(*dialog);
        }
    }
    /// The main window while a picture is edited, with the options of each task.
    void forEachTask(const std::function<void(QWidget&)>& check) {
        window().preview().ShowRow(basket(), 0);
        ASSERT_TRUE(waitFor([this] { return !window().preview().isBusy(); }));
        window().workspace().tasks.append(defaultRow(11, {})); // which enables one more button
        click(window(), "CmdPreviewEdit");
        ASSERT_TRUE(waitFor([this] { return !window().preview().isBusy(); }));
        for (const TaskKind& kind : taskKinds()) {
            SCOPED_TRACE(kind.panelKey);
            click(window(), kind.panelKey);
            QCoreApplication::processEvents();
            check(window());
        }
    }
    static std::vector<QWidget*> shownWidgets(const QWidget& form) {
        std::vector<QWidget*> shown;
        for (QWidget* widget : form.findChildren<QWidget*>())
            if (widget->isVisible() && widget->window() == &form)
                shown.push_back(widget);
        return shown;
    }
};

/// The text whose mnemonic a control has.
QString mnemonicText(const QWidget* widget) {
    const auto* label = qobject_cast<const QLabel*>(widget);
    if (label)
        return label->buddy() ? label->text() : QString();
    const auto* button = qobject_cast<const QAbstractButton*>(widget);
    return button ? button->text() : widget->property("title").toString();
}

void expectNotCut(const QWidget& widget) {
    const auto* label = qobject_cast<const QLabel*>(&widget);
    if ((!label || qobject_cast<const ElidedLabel*>(label)) && !qobject_cast<const QAbstractButton*>(&widget))
        return;
    const bool wraps = label && label->wordWrap();
    const QSize needed = wraps ? QSize(0, label->heightForWidth(label->width())) : widget.sizeHint();
    const QRect shown(widget.mapTo(widget.window(), QPoint()), widget.size());
    EXPECT_TRUE(shown.width() >= needed.width() && shown.height() >= needed.height() &&
                shown.right() < widget.window()->width())
        << widget.objectName().toStdString() << " " << mnemonicText(&widget).toStdString() << " "
        << shown.right() << " " << shown.height() << " of " << needed.height();
}

/// The Tab key comes to the buttons below a form after everything else.
void expectBottomRowLast(QWidget& form) {
    const QPushButton* lowest = nullptr;
    for (const char* name : {"cmdCancel", "cmdExit", "cmdClose"})
        lowest = lowest ? lowest : form.findChild<QPushButton*>(QLatin1String(name));
    bool reached = false;
    for (QWidget* next = form.nextInFocusChain(); lowest && next != &form; next = next->nextInFocusChain()) {
        if (!next->isVisible() || !(next->focusPolicy() & Qt::TabFocus) || next->window() != &form)
            continue;
        const bool below = next->mapTo(&form, QPoint()).y() >= lowest->y();
        EXPECT_TRUE(below || !reached) << next->objectName().toStdString();
        reached = below;
    }
}

template <class Texts>
void expectOneMnemonicEach(const Texts& texts) {
    QStringList taken;
    for (const QString& text : texts) {
        const QString key = QKeySequence::mnemonic(text).toString();
        EXPECT_TRUE(key.isEmpty() || !taken.contains(key))
            << text.toStdString() << " shares " << key.toStdString();
        taken << key;
    }
}

} // namespace

TEST_F(AllWindows, NameEveryControlForScreenReadersAndGiveEachAMnemonicOfItsOwn) {
    const auto check = [](QWidget& form) {
        QStringList texts;
        for (QWidget* widget : shownWidgets(form)) {
            if (widget->isEnabled()) // others don't take their key
                texts << mnemonicText(widget);
            if (widget->focusPolicy() == Qt::NoFocus || widget->focusProxy())
                continue;
            const auto* spoken = QAccessible::queryAccessibleInterface(widget);
            const std::string name =
                widget->metaObject()->className() + (" " + widget->objectName().toStdString());
            EXPECT_NE(spoken->text(QAccessible::Name).toStdString(), "") << name;
            EXPECT_TRUE(spoken->role() != QAccessible::Client && spoken->role() != QAccessible::NoRole)
                << name;
        }
        expectOneMnemonicEach(texts);
        expectBottomRowLast(form);
        for (const FormScrollArea* area : form.findChildren<FormScrollArea*>())
            EXPECT_FALSE(area->verticalScrollBar()->isVisible()) << "though the screen has room";
        for (const QMenu* menu : form.findChildren<QMenu*>()) {
            QStringList entries;
            for (const QAction* action : menu->actions())
                entries << action->text();
            expectOneMnemonicEach(entries);
        }
    };
    forEach(check);
    forEachTask(check);
}

/// With a font of 14 points on a small screen, and with 20 points.
TEST_F(AllWindows, CutNoLabelOrButtonWithALargeFont) {
    const QFont usual = QApplication::font();
    const auto restore = qScopeGuard([&] { QApplication::setFont(usual); });
    for (const int points : {14, 20}) {
        QFont large = usual;
        large.setPointSize(points);
        QApplication::setFont(large);
        forEach([&](QWidget& form) {
            constexpr QSize small(784, 552);
            if (points == 14 && &form != &window()) {
                form.resize(small);
                QCoreApplication::processEvents();
                EXPECT_EQ(form.size(), small) << "held open by its contents";
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
            << form.width() << " x " << form.height();
    });
}

} // namespace tarsel::test
