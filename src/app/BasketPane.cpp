// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/BasketPane.h"

#include "app/PaneParts.h"
#include "controls/ActionTable.h"
#include "controls/ListControl.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QToolButton>

namespace tarsel {

BasketPane::BasketPane(ListView& lvPages, const ActionTable& actions, QWidget* parent) :
    QWidget(parent), m_actions(actions), m_list(new ListControl(lvPages, this)) {
    m_list->setObjectName(QStringLiteral("lvPages"));
    m_list->setAccessibleName(tr("Pictures and pages in the basket"));
    m_list->setRowsDraggable();
    m_list->setHint(tr("Select pictures above and press \"Add to basket\", or drag them here."));
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(4);
    rows->addLayout(makeBar());
    rows->addWidget(m_list, 1);
    connect(m_list, &ListControl::rowDoubleClicked, this, &BasketPane::addDescription);
    connect(m_list, &ListControl::deleteReleased, this, &BasketPane::cmdPagesDelete);
    connectActions();
}

void BasketPane::setRunning(bool running) {
    for (const char* name : {"cmdPagesNew", "cmdPagesOpen", "cmdPagesSave", "cmdPagesDelete", "cmdSaveAs",
                             "mnuSaveAsJpeg", "mnuAddDescription", "mnuRenameTitle"})
        m_actions.action(name).setEnabled(!running);
    m_list->setEnabled(!running);
}

QLayout* BasketPane::makeBar() {
    auto* bar = new QHBoxLayout;
    bar->setSpacing(2);
    bar->addWidget(makePaneCaption(tr("Image basket"), this));
    bar->addStretch(1);
    for (const char* name : {"cmdPagesNew", "cmdPagesOpen", "cmdPagesSave", "cmdPagesDelete"})
        bar->addWidget(m_actions.makeButton(name, this));
    bar->addWidget(makeSaveAs());
    return bar;
}

QToolButton* BasketPane::makeSaveAs() {
    QToolButton* cmdSaveAs = m_actions.makeButton("cmdSaveAs", this, Qt::ToolButtonTextBesideIcon);
    cmdSaveAs->setMenu(m_actions.makeMenu("mnuSaveAsParent", {"mnuSaveAsJpeg"}, this));
    cmdSaveAs->setPopupMode(QToolButton::InstantPopup);
    return cmdSaveAs;
}

void BasketPane::connectActions() {
    const auto join = [this](const char* name, void (BasketPane::*signal)()) {
        connect(&m_actions.action(name), &QAction::triggered, this, signal);
    };
    join("cmdPagesNew", &BasketPane::cmdPagesNew);
    join("cmdPagesOpen", &BasketPane::cmdPagesOpen);
    join("cmdPagesSave", &BasketPane::cmdPagesSave);
    join("cmdPagesDelete", &BasketPane::cmdPagesDelete);
    join("mnuSaveAsJpeg", &BasketPane::saveAsJpegFiles);
    join("mnuAddDescription", &BasketPane::addDescription);
    join("mnuRenameTitle", &BasketPane::renameTitle);
    // F2 renames where the rows are, not in the other lists.
    QAction& rename = m_actions.action("mnuRenameTitle");
    rename.setShortcutContext(Qt::WidgetWithChildrenShortcut);
    m_list->addAction(&rename);
    QMenu* menu =
        m_actions.makeMenu("mnuContext", {"mnuAddDescription", "mnuRenameTitle", "cmdPagesDelete"}, this);
    connect(m_list, &ListControl::menuWanted, menu,
            [menu](const QPoint& position) { menu->popup(position); });
}

} // namespace tarsel
