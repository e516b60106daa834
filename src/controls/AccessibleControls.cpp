// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/AccessibleControls.h"

#include "controls/ExplorerBarParts.h"
#include "controls/Hyperlink.h"
#include "controls/SplitterBar.h"

#include <QAccessibleWidget>

namespace tarsel {

namespace {

/// A button that is drawn by ourselves.
class AccessibleButton : public QAccessibleWidget {
public:
    AccessibleButton(QAbstractButton* button, QAccessible::Role role) :
        QAccessibleWidget(button, role), m_button(button) {}

    QStringList actionNames() const override {
        return QStringList{pressAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& action) override {
        if (action == pressAction())
            m_button->click();
        else
            QAccessibleWidget::doAction(action);
    }
    QString text(QAccessible::Text kind) const override {
        const QString own = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && own.isEmpty() ? m_button->text() : own;
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        const bool isOn = m_button->isChecked();
        state.checkable = role() == QAccessible::RadioButton;
        state.checked = state.checkable && isOn;
        state.expandable = role() == QAccessible::ButtonDropDown;
        state.expanded = state.expandable && isOn;
        state.collapsed = state.expandable && !isOn;
        return state;
    }

private:
    QAbstractButton* m_button;
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
    if (auto* link = qobject_cast<Hyperlink*>(object))
        return new AccessibleButton(link, QAccessible::Link);
    if (auto* title = qobject_cast<ExplorerBarTitle*>(object))
        return new AccessibleButton(title, QAccessible::ButtonDropDown);
    if (auto* item = qobject_cast<ExplorerBarItem*>(object))
        return new AccessibleButton(item, QAccessible::RadioButton);
    if (auto* bar = qobject_cast<SplitterBar*>(object))
        return new QAccessibleWidget(bar, QAccessible::Splitter);
    return nullptr;
}

} // namespace

void installAccessibleControls() {
    QAccessible::installFactory(makeAccessible); // once, however often it is called
}

} // namespace tarsel
