// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FolderPane.h"

#include "app/PaneParts.h"
#include "controls/ActionTable.h"
#include "controls/ListControl.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QToolButton>

namespace tarsel {

FolderPane::FolderPane(ListView& lvFolder, const ActionTable& actions, QWidget* parent) :
    QWidget(parent), m_actions(actions), m_list(new ListControl(lvFolder, this)) {
    m_list->setObjectName(QStringLiteral("lvFolder"));
    m_list->setAccessibleName(tr("Pictures of the folder"));
    m_list->setRowsDraggable();
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(4);
    rows->addLayout(makeBar());
    rows->addWidget(m_list, 1);
    connect(m_list, &ListControl::rowDoubleClicked, this, &FolderPane::cmdAddToQueue);
    connect(m_list, &ListControl::enterPressed, this, &FolderPane::cmdAddToQueue);
    connectActions();
}

QLayout* FolderPane::makeBar() {
    auto* bar = new QHBoxLayout;
    bar->setSpacing(2);
    bar->addWidget(makePaneCaption(tr("Folder"), this));
    bar->addStretch(1);
    bar->addWidget(m_actions.makeButton("cmdAddToQueue", this, Qt::ToolButtonTextBesideIcon));
    for (const char* name : {"cmdThumbnailFolder", "cmdDetailFolder", "cmdRefreshFolder"})
        bar->addWidget(m_actions.makeButton(name, this));
    return bar;
}

void FolderPane::connectActions() {
    const auto join = [this](const char* name, void (FolderPane::*signal)()) {
        connect(&m_actions.action(name), &QAction::triggered, this, signal);
    };
    join("cmdAddToQueue", &FolderPane::cmdAddToQueue);
    join("cmdThumbnailFolder", &FolderPane::cmdThumbnailFolder);
    join("cmdDetailFolder", &FolderPane::cmdDetailFolder);
    join("cmdRefreshFolder", &FolderPane::cmdRefreshFolder);
    QMenu* menu = m_actions.makeMenu("mnuContextFolderParent", {"cmdAddToQueue"}, this);
    connect(m_list, &ListControl::menuWanted, menu,
            [menu](const QPoint& position) { menu->popup(position); });
    connect(m_list, &ListControl::formChanged, this, &FolderPane::showForm);
    showForm();
}

void FolderPane::showForm() {
    const bool details = m_list->form() == ListControl::Form::Details;
    m_actions.action(details ? "cmdDetailFolder" : "cmdThumbnailFolder").setChecked(true);
}

} // namespace tarsel
