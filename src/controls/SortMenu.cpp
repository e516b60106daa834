// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/SortMenu.h"

#include "base/ListView.h"

#include <QActionGroup>
#include <QCoreApplication>
#include <QMenu>

namespace tarsel {

void addSortMenu(QMenu& menu, QAction* before, ListView& list) {
    auto* columns = new QMenu(QCoreApplication::translate("SortMenu", "&Sort by"), &menu);
    columns->setObjectName(QStringLiteral("mnuSortBy"));
    auto* choice = new QActionGroup(columns);
    choice->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    for (int column = 0; column < list.columnCount(); ++column) {
        QAction* action =
            choice->addAction(list.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
        action->setCheckable(true);
        QObject::connect(action, &QAction::triggered, &list, [&list, column] { list.SortByColumn(column); });
    }
    columns->addActions(choice->actions());
    QObject::connect(&menu, &QMenu::aboutToShow, columns, [&list, columns, choice] {
        columns->setEnabled(!list.isEmpty());
        for (int column = 0; column < list.columnCount(); ++column)
            choice->actions().at(column)->setChecked(column == list.sortColumn());
    });
    menu.insertMenu(before, columns);
}

} // namespace tarsel
