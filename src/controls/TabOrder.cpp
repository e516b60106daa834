// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/TabOrder.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QLayout>
#include <QWidget>

namespace tarsel {

namespace {

void addControls(QLayout& layout, QWidgetList& controls) {
    for (int index = 0; QLayoutItem* item = layout.itemAt(index); ++index) {
        QWidget* widget = item->widget();
        QLayout* inside = widget ? widget->layout() : item->layout();
        if (widget && (widget->focusPolicy() & Qt::TabFocus))
            controls << widget;
        else if (inside)
            addControls(*inside, controls);
    }
}

} // namespace

void orderTabsByLayout(std::initializer_list<const QWidget*> panes) {
    QWidgetList controls;
    for (const QWidget* pane : panes)
        addControls(*pane->layout(), controls);
    for (qsizetype index = 1; index < controls.size(); ++index)
        QWidget::setTabOrder(controls[index - 1], controls[index]);
}

void letTabReachChosen(const QButtonGroup& group) {
    QObject::connect(&group, &QButtonGroup::buttonToggled, &group,
                     [&group](const QAbstractButton* chosen, bool on) {
                         for (QAbstractButton* each : group.buttons())
                             if (on)
                                 each->setFocusPolicy(each == chosen ? Qt::StrongFocus : Qt::ClickFocus);
                     });
}

} // namespace tarsel
