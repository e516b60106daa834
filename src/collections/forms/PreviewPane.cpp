// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/forms/PreviewPane.h"

#include "collections/forms/ImageBoxView.h"
#include "controls/ActionTable.h"
#include "controls/PaneCaption.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QToolButton>

namespace tarsel {

PreviewPane::PreviewPane(ImageBox& ibMain, const ActionTable& actions, QWidget* parent) :
    QWidget(parent), m_actions(actions), m_view(new ImageBoxView(ibMain, this)) {
    setObjectName(QStringLiteral("picView"));
    m_view->setObjectName(QStringLiteral("PicViewImage"));
    layOutPane(this, makeBar(), m_view);
    connectActions();
    setPreviewType(0);
}

int PreviewPane::previewType() const {
    return m_actions.action("mnuPreviewOptimized").isChecked() ? 1 : 0;
}

void PreviewPane::setPreviewType(int type) {
    m_shownType = type == 0 ? 0 : 1;
    QAction& item = m_actions.action(m_shownType == 0 ? "mnuPreviewOriginal" : "mnuPreviewOptimized");
    item.setChecked(true);
    m_actions.action("cmdPreviewType").setIconText(item.text() + QLatin1Char(' '));
}

/// Picking the item that is checked already does nothing.
void PreviewPane::chooseType() {
    if (previewType() == m_shownType)
        return;
    setPreviewType(previewType());
    Q_EMIT previewTypeChosen(m_shownType);
}

QLayout* PreviewPane::makeBar() {
    auto* bar = new QHBoxLayout;
    bar->setSpacing(2);
    bar->addWidget(makePaneCaption(tr("Preview"), this));
    bar->addStretch(1);
    bar->addWidget(m_actions.makeMenuButton("cmdPreviewType", "mnuPreviewType",
                                            {"mnuPreviewOriginal", "mnuPreviewOptimized"}, this));
    for (const char* name : {"cmdPreviewPrevious", "cmdPreviewNext"})
        bar->addWidget(m_actions.makeButton(name, this));
    return bar;
}

void PreviewPane::connectActions() {
    for (const char* name : {"mnuPreviewOriginal", "mnuPreviewOptimized"})
        connect(&m_actions.action(name), &QAction::triggered, this, &PreviewPane::chooseType);
    connect(&m_actions.action("cmdPreviewPrevious"), &QAction::triggered, this,
            &PreviewPane::cmdPreviewPrevious);
    connect(&m_actions.action("cmdPreviewNext"), &QAction::triggered, this, &PreviewPane::cmdPreviewNext);
}

} // namespace tarsel
