// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/StatusBar.h"

#include "controls/ElidedLabel.h"
#include "controls/LineIcon.h"
#include "controls/LineIconLabel.h"

#include <QHBoxLayout>
#include <algorithm>

namespace tarsel {

StatusBar::StatusBar(StatusLine& line, const std::vector<StatusPanel>& panels, QWidget* parent) :
    QStatusBar(parent) {
    setSizeGripEnabled(true);
    for (const StatusPanel& panel : panels)
        addPanel(panel);
    connect(&line, &StatusLine::panelChanged, this, &StatusBar::showPanel);
    for (const StatusPanel& panel : panels)
        line.setPanel(QLatin1String(panel.key), panel.initialText);
}

QString StatusBar::text(const QString& key) const {
    const QLabel* label = m_labels.value(key);
    return label ? label->text() : QString();
}

void StatusBar::addPanel(const StatusPanel& panel) {
    auto* holder = new QWidget(this);
    auto* row = new QHBoxLayout(holder);
    row->setContentsMargins(4, 1, 4, 1);
    row->setSpacing(4);
    if (*panel.icon)
        row->addWidget(new LineIconLabel(lineIcon(QLatin1String(panel.icon)), holder));
    auto* label = new ElidedLabel(holder, panel.elide);
    label->setObjectName(QStringLiteral("sbMain_") + QLatin1String(panel.key));
    // Without a name of its own the label's text is spoken.
    label->setAccessibleDescription(panel.toolTip);
    row->addWidget(label, 1);
    holder->setToolTip(panel.toolTip);
    addWidget(holder, panel.stretch);
    m_labels.insert(QLatin1String(panel.key), label);
    if (panel.yields)
        m_yielding.insert(label);
}

void StatusBar::showPanel(const QString& key, const QString& text) {
    if (QLabel* label = m_labels.value(key)) {
        label->setText(text);
        shareRoom();
    }
}

void StatusBar::resizeEvent(QResizeEvent* event) {
    QStatusBar::resizeEvent(event);
    shareRoom();
}

void StatusBar::shareRoom() {
    for (QLabel* label : std::as_const(m_labels))
        if (!m_yielding.contains(label))
            label->setMinimumWidth(std::min(label->sizeHint().width(), width() / 6));
}

} // namespace tarsel
