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
    int room = width() - (isSizeGripEnabled() ? height() : 0);
    std::vector<std::pair<int, QLabel*>> wanting;
    for (QLabel* label : std::as_const(m_labels)) {
        const int counted = // in the width of its holder
            label->minimumWidth() > 0 ? label->minimumWidth() : label->minimumSizeHint().width();
        room -= label->parentWidget()->layout()->minimumSize().width() - counted + layout()->spacing();
        if (m_yielding.contains(label))
            room -= counted;
        else
            wanting.emplace_back(std::min(label->sizeHint().width(), width() / 6), label);
    }
    // From the shortest to the longest: none gets more than an even share of what is left.
    std::ranges::sort(wanting);
    for (int left = int(wanting.size()); const auto& [wanted, label] : wanting) {
        const int given = std::clamp(room / left--, 0, wanted);
        label->setMinimumWidth(given);
        room -= given;
    }
}

} // namespace tarsel
