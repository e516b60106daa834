// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/forms/ItemList.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>

namespace tarsel {

void joinItemList(const ItemListControls& controls, const QStringList& items) {
    controls.list->addItems(items);
    controls.text->setFocus();
    const auto add = [controls] {
        if (controls.text->text().isEmpty())
            return;
        controls.list->addItem(controls.text->text());
        controls.list->setCurrentRow(controls.list->count() - 1);
        controls.text->clear();
    };
    const auto remove = [controls] { delete controls.list->takeItem(controls.list->currentRow()); };
    // What Return does: it adds what is typed, and accepts when there is nothing to add.
    const auto showDefault = [controls] {
        (controls.text->text().isEmpty() ? controls.ok : controls.add)->setDefault(true);
    };
    const auto showChoice = [controls] { controls.remove->setEnabled(controls.list->currentRow() >= 0); };
    QObject::connect(controls.add, &QPushButton::clicked, controls.list, add);
    QObject::connect(controls.text, &QLineEdit::textChanged, controls.list, showDefault);
    QObject::connect(controls.remove, &QPushButton::clicked, controls.list, remove);
    auto* del = new QShortcut(QKeySequence::Delete, controls.list, nullptr, nullptr, Qt::WidgetShortcut);
    QObject::connect(del, &QShortcut::activated, controls.list, remove);
    QObject::connect(controls.list, &QListWidget::currentRowChanged, controls.list, showChoice);
    showChoice();
}

QStringList itemsOf(const QListWidget& list) {
    QStringList items;
    for (int i = 0; i < list.count(); ++i)
        items << list.item(i)->text();
    return items;
}

} // namespace tarsel
