// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/gui/AllWindows.h"

#include "configuration/ConfigRecord.h"
#include "controls/ElidedLabel.h"
#include "docs/screenshots/SampleDialogs.h"
#include "tasks/TaskColumns.h"

#include <QAbstractButton>
#include <QLabel>
#include <QMenu>
#include <QScrollArea>
#include <QTabWidget>

namespace tarsel::test {

void AllWindows::forEach(const Check& check) {
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

void AllWindows::forEachTask(const Check& check) {
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

std::vector<QWidget*> AllWindows::shownWidgets(const QWidget& form) {
    std::vector<QWidget*> shown;
    for (QWidget* widget : form.findChildren<QWidget*>())
        if (widget->isVisible() && widget->window() == &form)
            shown.push_back(widget);
    return shown;
}

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
    // A form that is larger than its screen is scrolled.
    const auto* fitted = widget.window()->findChild<QScrollArea*>(QStringLiteral("areaFitted"));
    const QWidget& form =
        fitted && fitted->widget()->isAncestorOf(&widget) ? *fitted->widget() : *widget.window();
    const QRect shown(widget.mapTo(&form, QPoint()), widget.size());
    EXPECT_TRUE(shown.width() >= needed.width() && shown.height() >= needed.height() &&
                shown.right() < form.width())
        << widget.objectName().toStdString() << " " << mnemonicText(&widget).toStdString() << " "
        << shown.right() << " " << shown.height() << " of " << needed.height();
}

void expectOneMnemonicEach(const QStringList& texts) {
    QStringList taken;
    for (const QString& text : texts) {
        const QString key = QKeySequence::mnemonic(text).toString();
        EXPECT_TRUE(key.isEmpty() || !taken.contains(key))
            << text.toStdString() << " shares " << key.toStdString();
        taken << key;
    }
}

void expectMnemonicsOfTheirOwn(const QWidget& form, const std::vector<QWidget*>& shown) {
    QStringList texts;
    for (const QWidget* widget : shown)
        if (widget->isEnabled()) // others don't take their key
            texts << mnemonicText(widget);
    expectOneMnemonicEach(texts);
    for (const QMenu* menu : form.findChildren<QMenu*>()) {
        QStringList entries;
        for (const QAction* action : menu->actions())
            entries << action->text();
        expectOneMnemonicEach(entries);
    }
}

} // namespace tarsel::test
