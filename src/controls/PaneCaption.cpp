// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/PaneCaption.h"

#include <QLabel>

namespace tarsel {

QLabel* makePaneCaption(const QString& text, QWidget* parent) {
    auto* caption = new QLabel(text, parent);
    QFont font = caption->font();
    font.setBold(true);
    caption->setFont(font);
    caption->setContentsMargins(4, 0, 4, 0);
    return caption;
}

} // namespace tarsel
