// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/forms/BrowsePane.h"

#include "collections/forms/FolderTree.h"
#include "collections/forms/PlacesBar.h"
#include "controls/ActionTable.h"
#include "controls/FocusFrame.h"
#include "controls/FocusTabBar.h"
#include "controls/ListControl.h"
#include "controls/PaneCaption.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QStackedWidget>
#include <QToolButton>
#include <algorithm>

namespace tarsel {

namespace {

/// In a narrow pane only the first text is shortened.
class BrowseTabs final : public FocusTabBar {
public:
    using FocusTabBar::FocusTabBar;

protected:
    QSize minimumTabSizeHint(int tab) const override {
        return tab == 0 ? QTabBar::minimumTabSizeHint(tab) : tabSizeHint(tab);
    }
};

/// Complete texts where the screen has room for them.
int affordableWidth(int width, const QWidget& pane) {
    return std::min(width, pane.screen()->availableGeometry().width() * 26 / 100);
}

QTabBar* makeTabs(QWidget* parent) {
    auto* tbsBrowse = new BrowseTabs(parent);
    tbsBrowse->setObjectName(QStringLiteral("tbsBrowse"));
    tbsBrowse->setDocumentMode(true);
    tbsBrowse->setExpanding(false);
    tbsBrowse->setUsesScrollButtons(false); // both tabs stay in view
    tbsBrowse->setElideMode(Qt::ElideRight);
    tbsBrowse->addTab(BrowsePane::tr("Browse File System"));
    tbsBrowse->addTab(BrowsePane::tr("Task Basket"));
    tbsBrowse->setTabToolTip(0, tbsBrowse->tabText(0));
    tbsBrowse->setMinimumWidth(affordableWidth(tbsBrowse->sizeHint().width(), *parent));
    return tbsBrowse;
}

} // namespace

BrowsePane::BrowsePane(TaskList& tasks, const ActionTable& actions, QWidget* parent) :
    QWidget(parent), m_actions(actions), m_tree(new FolderTree(this)),
    m_tasks(new ListControl(tasks.lvEdit, this)), m_tabs(makeTabs(this)) {
    QLabel* lblBrowse = makePaneCaption(tr("Browse File System"), this);
    lblBrowse->setObjectName(QStringLiteral("lblBrowse"));
    // Before the field takes the focus, which would be out of sight on the other tab.
    connect(&actions.action("cmdTypePath"), &QAction::triggered, this, [this] { showTab(0); });
    auto* panels = new QStackedWidget(this);
    panels->addWidget(makeFolderPanel());
    panels->addWidget(makeTaskPanel());

    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(4);
    auto* caption = new QHBoxLayout;
    caption->addWidget(lblBrowse, 1);
    for (const char* name : {"cmdCapture", "cmdTwainAcquire", "cmdBrowseSettings"})
        caption->addWidget(actions.makeButton(name, this));
    QToolButton* help = actions.makeMenuButton("cmdHelp", "mnuHelp", {"mnuManual", "mnuAbout"}, this);
    help->setToolButtonStyle(Qt::ToolButtonIconOnly);
    caption->addWidget(help);
    rows->addLayout(caption);
    const int captionWidth = caption->sizeHint().width(), textWidth = lblBrowse->sizeHint().width();
    lblBrowse->setMinimumWidth(std::max(0, textWidth - captionWidth + affordableWidth(captionWidth, *this)));
    rows->addWidget(m_tabs);
    rows->addWidget(panels, 1);

    const auto showPanel = [this, panels, lblBrowse](int tab) {
        panels->setCurrentIndex(tab);
        lblBrowse->setText(m_tabs->tabText(tab));
    };
    connect(m_tabs, &QTabBar::currentChanged, this, showPanel);
    showPanel(0);
}

void BrowsePane::showTab(int tab) {
    m_tabs->setCurrentIndex(tab);
}

QWidget* BrowsePane::makeFolderPanel() {
    auto* picFileSystem = new QWidget(this);
    picFileSystem->setObjectName(QStringLiteral("picFileSystem"));
    m_tree->setFrameShape(QFrame::StyledPanel);
    auto* rows = new QVBoxLayout(picFileSystem);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(4);
    rows->addWidget(makePlaces());
    rows->addWidget(new FocusFrame(*m_tree, picFileSystem));
    return picFileSystem;
}

QWidget* BrowsePane::makePlaces() {
    auto* places = new PlacesBar(m_tree->model(), m_question, m_actions, this);
    connect(m_tree, &FolderTree::folderSelected, places, &PlacesBar::showFolder);
    connect(m_tree, &FolderTree::folderSelected, this, [this] { m_question.forget(); });
    connect(places, &PlacesBar::folderChosen, m_tree, [this](const QString& folder) {
        m_tree->selectFolder(folder);
        if (m_tree->isVisible())
            m_tree->setFocus();
    });
    connect(places, &PlacesBar::fileChosen, this, &BrowsePane::fileChosen);
    connect(places, &PlacesBar::pathRefused, this, &BrowsePane::pathRefused);
    return places;
}

void BrowsePane::setRunning(bool running) {
    m_actions.setEnabled({"cmdEditBar_0", "cmdEditBar_1", "cmdEditBar_3"}, !running);
    m_tasks->setEnabled(!running);
}

QWidget* BrowsePane::makeTaskPanel() {
    auto* picEditBar = new QWidget(this);
    picEditBar->setObjectName(QStringLiteral("picEditBar"));
    auto* bar = new QHBoxLayout;
    bar->setSpacing(2);
    int index = 0;
    for (const char* name : {"cmdEditBar_0", "cmdEditBar_1", "cmdEditBar_2", "cmdEditBar_3"}) {
        bar->addWidget(m_actions.makeButton(name, picEditBar));
        addAction(&m_actions.action(name)); // for its shortcut while the other tab is on show
        connect(&m_actions.action(name), &QAction::triggered, this,
                [this, index] { Q_EMIT cmdEditBar(index); });
        ++index;
    }
    bar->addStretch(1);
    m_tasks->setObjectName(QStringLiteral("lvEdit"));
    m_tasks->setAccessibleName(tr("Confirmed tasks"));
    m_tasks->setFullRowSelect(true);
    m_tasks->setSortable(false); // the order is that of the tasks
    m_tasks->setSingleSelection();
    m_tasks->setHint(tr("Open a task basket to run its tasks on the pictures."));
    layOutPane(picEditBar, bar, m_tasks);
    return picEditBar;
}

} // namespace tarsel
