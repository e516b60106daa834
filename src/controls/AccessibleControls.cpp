// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/AccessibleControls.h"

#include "controls/Hyperlink.h"
#include "controls/SplitterBar.h"

#include <QAccessibleWidget>

namespace tarsel {

namespace {

class AccessibleLink final : public QAccessibleWidget {
public:
    explicit AccessibleLink(Hyperlink* link) : QAccessibleWidget(link, QAccessible::Link), m_link(link) {}

    QStringList actionNames() const override {
        return QStringList{pressAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& action) override {
        if (action == pressAction())
            m_link->click();
        else
            QAccessibleWidget::doAction(action);
    }

private:
    Hyperlink* m_link;
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
    if (auto* link = qobject_cast<Hyperlink*>(object))
        return new AccessibleLink(link);
    if (auto* bar = qobject_cast<SplitterBar*>(object))
        return new QAccessibleWidget(bar, QAccessible::Splitter);
    return nullptr;
}

} // namespace

void installAccessibleControls() {
    QAccessible::installFactory(makeAccessible); // once, however often it is called
}

} // namespace tarsel
