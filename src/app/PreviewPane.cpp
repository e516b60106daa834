// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/PreviewPane.h"

#include "app/ImageBoxView.h"
#include "app/PaneParts.h"

#include <QActionGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QToolButton>

namespace tarsel {

PreviewPane::PreviewPane(ImageBox& ibMain, QWidget* parent) :
    QWidget(parent), m_view(new ImageBoxView(ibMain, this)), m_types(new QActionGroup(this)),
    m_typeButton(makeTypeButton()) {
    setObjectName(QStringLiteral("picView"));
    m_view->setObjectName(QStringLiteral("PicViewImage"));
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(4);
    rows->addLayout(makeBar());
    rows->addWidget(m_view, 1);
    setPreviewType(0);
}

int PreviewPane::previewType() const {
    return int(m_types->actions().indexOf(m_types->checkedAction()));
}

void PreviewPane::setPreviewType(int type) {
    const QList<QAction*> items = m_types->actions();
    m_shownType = type == 0 ? 0 : 1;
    items[m_shownType]->setChecked(true);
    m_typeButton->setText(items[m_shownType]->text() + QLatin1Char(' '));
}

/// Picking the item that is checked already does nothing.
void PreviewPane::chooseType() {
    if (previewType() == m_shownType)
        return;
    setPreviewType(previewType());
    Q_EMIT previewTypeChosen(m_shownType);
}

QToolButton* PreviewPane::makeTypeButton() {
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("mnuPreviewType"));
    for (const char* text : {"Original", "Optimized"}) {
        QAction* item = menu->addAction(QLatin1String(text));
        item->setCheckable(true);
        m_types->addAction(item);
    }
    auto* button =
        makePaneButton("cmdPreviewType", "iDetailIcon", QStringLiteral("Original "),
                       QStringLiteral("Show the picture as it is or with the tasks applied"), this);
    button->setMenu(menu);
    button->setPopupMode(QToolButton::InstantPopup);
    connect(m_types, &QActionGroup::triggered, this, &PreviewPane::chooseType);
    return button;
}

QLayout* PreviewPane::makeBar() {
    auto* bar = new QHBoxLayout;
    bar->setSpacing(2);
    bar->addWidget(makePaneCaption(QStringLiteral("Preview"), this));
    bar->addStretch(1);
    bar->addWidget(m_typeButton);
    auto* previous =
        makePaneButton("cmdPreviewPrevious", "previous", {}, QStringLiteral("Previous image"), this);
    auto* next = makePaneButton("cmdPreviewNext", "next", {}, QStringLiteral("Next image"), this);
    connect(previous, &QToolButton::clicked, this, &PreviewPane::cmdPreviewPrevious);
    connect(next, &QToolButton::clicked, this, &PreviewPane::cmdPreviewNext);
    bar->addWidget(previous);
    bar->addWidget(next);
    return bar;
}

} // namespace tarsel
