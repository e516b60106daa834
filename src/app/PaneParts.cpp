// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/PaneParts.h"

#include "controls/LineIcon.h"

#include <QLabel>
#include <QToolButton>

namespace tarsel {

QToolButton* makePaneButton(const char* name, const char* icon, const QString& caption,
                            const QString& toolTip, QWidget* parent) {
    auto* button = new QToolButton(parent);
    button->setObjectName(QLatin1String(name));
    button->setIcon(lineIcon(QLatin1String(icon)));
    button->setIconSize({18, 18});
    button->setText(caption);
    button->setToolButtonStyle(caption.isEmpty() ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextBesideIcon);
    button->setToolTip(toolTip);
    button->setAccessibleName(toolTip);
    button->setAutoRaise(true);
    return button;
}

QLabel* makePaneCaption(const QString& text, QWidget* parent) {
    auto* caption = new QLabel(text, parent);
    QFont font = caption->font();
    font.setBold(true);
    caption->setFont(font);
    caption->setContentsMargins(4, 0, 4, 0);
    return caption;
}

} // namespace tarsel
