// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/forms/ItemList.h"

#include "controls/PaleText.h"

#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>

namespace tarsel {

namespace {

void addTyped(const ItemListControls& controls) {
    const QString text = controls.text->text().trimmed();
    controls.text->clear();
    if (text.isEmpty())
        return;
    auto present = controls.list->findItems(text, Qt::MatchFixedString | Qt::MatchCaseSensitive);
    controls.note->setVisible(!present.isEmpty());
    if (!present.isEmpty())
        controls.note->setText(
            QCoreApplication::translate("ItemList", "\"%1\" is in the list already.").arg(text));
    else
        controls.list->addItem(text);
    controls.list->setCurrentRow(present.isEmpty() ? controls.list->count() - 1
                                                   : controls.list->row(present.front()));
}

} // namespace

void joinItemList(const ItemListControls& controls, const QStringList& items) {
    controls.list->addItems(items);
    controls.note->hide();
    keepPlaceholderReadable(*controls.text);
    controls.text->setFocus();
    const auto add = [controls] { addTyped(controls); };
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
