// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace tarsel {

/// The controls by which a dialog edits a list of texts.
struct ItemListControls {
    QListWidget* list;
    QLineEdit* text;
    QPushButton* add;
    QPushButton* remove;
    QPushButton* ok;
    QLabel* note; ///< what was not added, and why
};

/// Fills the list and joins the controls: "Add" appends the text without the blanks round it, and empties the
/// field; a text that the list has is shown there instead. "Delete" and the key Del remove the selected line.
/// Return in the field adds, and accepts when the field is empty.
void joinItemList(const ItemListControls& controls, const QStringList& items);

QStringList itemsOf(const QListWidget& list);

} // namespace tarsel
