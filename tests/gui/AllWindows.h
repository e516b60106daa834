// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/gui/WindowTest.h"

namespace tarsel::test {

/// The main window and every dialog, with pictures in the basket; forms with tabs once with each tab.
class AllWindows : public WindowTest {
protected:
    using Check = std::function<void(QWidget& form)>;
    void forEach(const Check& check);
    /// The main window while a picture is edited, with the options of each task.
    void forEachTask(const Check& check);
    static std::vector<QWidget*> shownWidgets(const QWidget& form);
};

/// The text whose mnemonic a control has.
QString mnemonicText(const QWidget* widget);
void expectNotCut(const QWidget& widget);
void expectOneMnemonicEach(const QStringList& texts);
/// Of the controls on show that take their keys, and of the entries of each menu.
void expectMnemonicsOfTheirOwn(const QWidget& form, const std::vector<QWidget*>& shown);

} // namespace tarsel::test
