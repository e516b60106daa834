// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ActionTable.h"

#include "controls/BarButton.h"
#include "controls/LineIcon.h"

#include <QActionGroup>
#include <QCoreApplication>
#include <QMenu>

namespace tarsel {

ActionTable::ActionTable(std::span<const ActionRow> rows, const char* translationContext, QObject* parent) :
    QObject(parent) {
    for (const ActionRow& row : rows)
        add(row, translationContext);
}

void ActionTable::add(const ActionRow& row, const char* translationContext) {
    const auto translated = [&](const char* text) {
        return *text ? QCoreApplication::translate(translationContext, text) : QString();
    };
    auto* action = new QAction(translated(row.text), this);
    action->setObjectName(QLatin1String(row.name));
    connect(action, &QAction::triggered, this, &ActionTable::triggering);
    action->setShortcut(QKeySequence(QLatin1String(row.keys)));
    QString tip = translated(row.toolTip);
    if (!action->shortcut().isEmpty())
        tip += QStringLiteral(" (%1)").arg(action->shortcut().toString(QKeySequence::NativeText));
    action->setToolTip(tip);
    if (*row.icon)
        action->setIcon(lineIcon(QLatin1String(row.icon)));
    if (*row.choice)
        addToChoice(action, row.choice);
    m_actions.push_back(action);
}

void ActionTable::addToChoice(QAction* action, const char* choice) {
    auto* group = findChild<QActionGroup*>(QLatin1String(choice));
    if (!group) {
        group = new QActionGroup(this);
        group->setObjectName(QLatin1String(choice));
    }
    action->setCheckable(true);
    group->addAction(action);
}

QAction& ActionTable::action(const char* name) const {
    for (QAction* action : m_actions)
        if (action->objectName() == QLatin1String(name))
            return *action;
    qFatal("No action is called %s", name);
}

void ActionTable::setEnabled(std::initializer_list<const char*> names, bool enabled) const {
    for (const char* name : names)
        action(name).setEnabled(enabled);
}

QToolButton* ActionTable::makeButton(const char* name, QWidget* parent, Qt::ToolButtonStyle style) const {
    return makeBarButton(name, parent, style);
}

BarButton* ActionTable::makeBarButton(const char* name, QWidget* parent, Qt::ToolButtonStyle style) const {
    auto* button = new BarButton(parent);
    // Without an icon text of its own a button shows the action's text without the mnemonic.
    if (style != Qt::ToolButtonIconOnly)
        action(name).setIconText(action(name).text());
    button->setDefaultAction(&action(name));
    button->setObjectName(QLatin1String(name));
    const int side = button->fontMetrics().height() + 2;
    button->setIconSize({side, side});
    button->setToolButtonStyle(style);
    button->setAutoRaise(true);
    return button;
}

QToolButton* ActionTable::makeMenuButton(const char* name, const char* menuName,
                                         std::initializer_list<const char*> items, QWidget* parent) const {
    BarButton* button = makeBarButton(name, parent, Qt::ToolButtonTextBesideIcon);
    button->setPopup(makeMenu(menuName, items, parent));
    return button;
}

QMenu* ActionTable::makeMenu(const char* objectName, std::initializer_list<const char*> names,
                             QWidget* parent) const {
    auto* menu = new QMenu(parent);
    menu->setObjectName(QLatin1String(objectName));
    for (const char* name : names)
        menu->addAction(&action(name));
    return menu;
}

std::vector<ActionTable::Shortcut> ActionTable::shortcuts() const {
    std::vector<Shortcut> shortcuts;
    for (const QAction* action : m_actions)
        if (!action->shortcut().isEmpty())
            shortcuts.push_back({action->text().remove(QLatin1Char('&')), action->shortcut()});
    return shortcuts;
}

} // namespace tarsel
