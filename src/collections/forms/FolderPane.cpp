// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/forms/FolderPane.h"

#include "collections/FolderRow.h"
#include "collections/FolderView.h"
#include "collections/forms/PictureImage.h"
#include "controls/ActionTable.h"
#include "controls/ListControl.h"
#include "controls/PaneCaption.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QToolButton>

namespace tarsel {

FolderPane::FolderPane(FolderView& view, ListView& lvFolder, const ActionTable& actions, QWidget* parent) :
    QWidget(parent), m_view(view), m_actions(actions), m_list(new ListControl(lvFolder, this)) {
    m_list->setObjectName(QStringLiteral("lvFolder"));
    m_list->setAccessibleName(tr("Pictures of the folder"));
    m_list->setPixmapMaker(pixmapOf);
    m_list->setRowsDraggable();
    m_list->setUsualText(FolderColumn::Resolution, QStringLiteral("12000 X 9000 X 24"));
    layOutPane(this, makeBar(), m_list);
    connectList();
    connectActions();
}

void FolderPane::setForm(int folderView) {
    m_list->setForm(folderView == 0 ? ListControl::Form::Thumbnails : ListControl::Form::Details);
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

void FolderPane::connectList() {
    m_view.visibleRows = [this] {
        const ListControl::RowRange rows = m_list->visibleRows();
        return std::pair(rows.first, rows.last);
    };
    connect(&m_view, &FolderView::runningChanged, this, &FolderPane::showHint);
    connect(m_list, &ListControl::viewMoved, &m_view, &FolderView::preferVisibleRows);
    connect(m_list, &ListControl::rowDoubleClicked, this, &FolderPane::cmdAddToQueue);
    connect(m_list, &ListControl::enterPressed, this, &FolderPane::cmdAddToQueue);
    connect(m_list, &ListControl::rowClicked, this, &FolderPane::chooseRow);
    connect(m_list, &ListControl::arrowReleased, this, &FolderPane::chooseRow);
    connect(m_list, &ListControl::formChanged, this, &FolderPane::showForm);
}

void FolderPane::connectActions() {
    // The list itself takes the key.
    m_actions.action("cmdAddToQueue").setShortcutContext(Qt::WidgetShortcut);
    connect(&m_actions.action("cmdAddToQueue"), &QAction::triggered, this, &FolderPane::cmdAddToQueue);
    connect(&m_actions.action("cmdThumbnailFolder"), &QAction::triggered, this,
            &FolderPane::cmdThumbnailFolder);
    connect(&m_actions.action("cmdDetailFolder"), &QAction::triggered, this, &FolderPane::cmdDetailFolder);
    connect(&m_actions.action("cmdRefreshFolder"), &QAction::triggered, &m_view, &FolderView::refresh);
    QMenu* menu = m_actions.makeMenu("mnuContextFolderParent", {"cmdAddToQueue"}, this);
    connect(m_list, &ListControl::menuWanted, menu,
            [menu](const QPoint& position) { menu->popup(position); });
    showForm();
}

void FolderPane::cmdThumbnailFolder() {
    m_list->setForm(ListControl::Form::Thumbnails);
    m_view.cmdThumbnailFolder();
    Q_EMIT formChosen(m_view.settings.folderView);
}

void FolderPane::cmdDetailFolder() {
    m_list->setForm(ListControl::Form::Details);
    m_view.cmdDetailFolder();
    Q_EMIT formChosen(m_view.settings.folderView);
}

/// A click that leaves several rows selected, as before a drag, loads no picture.
void FolderPane::chooseRow() {
    const ListView& rows = m_list->list();
    if (rows.selectedRows().size() <= 1)
        Q_EMIT rowChosen(m_list->list(), rows.selectedIndex());
}

/// What an empty list says about its folder, once that has been read.
void FolderPane::showHint() {
    if (m_view.isRunning() || m_view.currentFolder().isEmpty())
        m_list->setHint({});
    else
        m_list->setHint(m_view.refusal().isEmpty() ? tr("This folder holds no pictures that can be shown.")
                                                   : m_view.refusal());
}

void FolderPane::showForm() {
    const bool details = m_list->form() == ListControl::Form::Details;
    m_actions.action(details ? "cmdDetailFolder" : "cmdThumbnailFolder").setChecked(true);
}

} // namespace tarsel
