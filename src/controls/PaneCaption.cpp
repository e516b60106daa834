// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/PaneCaption.h"

#include "controls/ElidedLabel.h"

#include <QLabel>
#include <QVBoxLayout>

namespace tarsel {

QLabel* makePaneCaption(const QString& text, QWidget* parent) {
    // Known words can be shortened where the window is narrow; a text that changes can't.
    QLabel* caption = text.isEmpty() ? new QLabel(parent) : new ElidedLabel(parent);
    caption->setText(text);
    QFont font = caption->font();
    font.setBold(true);
    caption->setFont(font);
    caption->setContentsMargins(4, 0, 4, 0);
    return caption;
}

QVBoxLayout* layOutPane(QWidget* pane, QLayout* bar, QWidget* contents) {
    auto* rows = new QVBoxLayout(pane);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(4);
    rows->addLayout(bar);
    rows->addWidget(contents, 1);
    return rows;
}

} // namespace tarsel
