// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/forms/BasketPane.h"

#include "collections/Basket.h"
#include "collections/BasketHistory.h"
#include "collections/TitleFault.h"
#include "collections/forms/PictureImage.h"
#include "collections/forms/frmAlbumDescription.h"
#include "controls/ActionTable.h"
#include "controls/DeletedDialog.h"
#include "controls/ListControl.h"
#include "controls/PaneCaption.h"
#include "controls/ShortenedButtons.h"
#include "controls/SortMenu.h"

#include <QAbstractItemView>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QToolButton>

namespace tarsel {

BasketPane::BasketPane(ListView& lvPages, const ActionTable& actions, QWidget* parent) :
    QWidget(parent), m_actions(actions), m_list(new ListControl(lvPages, this)) {
    setObjectName(QStringLiteral("picBasket"));
    m_list->setObjectName(QStringLiteral("lvPages"));
    m_list->setAccessibleName(tr("Pictures and pages in the basket"));
    m_list->setPixmapMaker(pixmapOf);
    m_list->setRowsDraggable();
    m_list->setUsualText(BasketColumn::Resolution, QStringLiteral("12000 X 9000 X 24"));
    m_list->setUsualText(BasketColumn::SourcePath, QStringLiteral("/home/name/Pictures/picture.jpg"));
    m_list->acceptRowsOf(m_list);
    m_list->acceptFiles();
    layOutPane(this, makeBar(), m_list);
    connectList();
    connectActions();
}

void BasketPane::setRunning(bool running) {
    m_actions.setEnabled({"cmdPagesNew", "cmdPagesOpen", "cmdPagesSave", "cmdPagesDelete", "cmdBatchPrint",
                          "cmdSaveAs", "mnuSaveAsJpeg", "mnuSaveAsAlbum", "mnuSaveAsSaver"},
                         !running);
    m_list->setEnabled(!running);
    m_running = running;
    enableRowCommands();
    enableHistory();
}

void BasketPane::showHistory(const BasketHistory& history, bool offersLastSession) {
    struct Texts {
        QString undo, redo;
    };
    const auto textsOf = [](BasketHistory::Kind kind) -> Texts {
        using enum BasketHistory::Kind;
        switch (kind) {
        case Remove:
            return {tr("&Undo removing from basket"), tr("Red&o removing from basket")};
        case NewBasket:
            return {tr("&Undo new basket"), tr("Red&o new basket")};
        case OpenBasket:
            return {tr("&Undo opening a basket"), tr("Red&o opening a basket")};
        case Move:
            return {tr("&Undo moving rows"), tr("Red&o moving rows")};
        case Sort:
            return {tr("&Undo sorting"), tr("Red&o sorting")};
        case Rename:
            return {tr("&Undo renaming a title"), tr("Red&o renaming a title")};
        case Describe:
            return {tr("&Undo changing a description"), tr("Red&o changing a description")};
        }
        return {};
    };
    const auto undoable = history.undoable(), redoable = history.redoable();
    m_canUndo = undoable || offersLastSession;
    m_canRedo = redoable.has_value();
    m_actions.action("mnuUndo").setText(undoable            ? textsOf(*undoable).undo
                                        : offersLastSession ? tr("&Undo the end of the last session")
                                                            : tr("&Undo"));
    m_actions.action("mnuRedo").setText(redoable ? textsOf(*redoable).redo : tr("Red&o"));
    QString hint = tr("Select pictures above and press \"Add to basket\", or drag them here.");
    if (offersLastSession)
        hint += QLatin1Char('\n') +
                tr("%1 brings back the basket of the last session.")
                    .arg(m_actions.action("mnuUndo").shortcut().toString(QKeySequence::NativeText));
    m_list->setHint(hint);
    enableHistory();
}

void BasketPane::enableHistory() {
    m_actions.setEnabled({"mnuUndo"}, m_canUndo && !m_running);
    m_actions.setEnabled({"mnuRedo"}, m_canRedo && !m_running);
}

void BasketPane::setAdding(bool adding) {
    m_actions.setEnabled({"cmdPagesOpen", "cmdPagesSave", "cmdBatchPrint", "cmdSaveAs", "mnuSaveAsJpeg",
                          "mnuSaveAsAlbum", "mnuSaveAsSaver"},
                         !adding && !m_running);
    m_adding = adding;
    enableRowCommands();
}

void BasketPane::enableRowCommands() {
    const bool hasRow = m_list->view()->selectionModel()->hasSelection() && !m_running;
    m_actions.setEnabled({"mnuAddDescription", "mnuRenameTitle", "mnuMoveUp", "mnuMoveDown"}, hasRow);
    m_actions.setEnabled({"mnuSaveRowAs"}, hasRow && !m_adding); // its dialog would hold up the adding
}

QLayout* BasketPane::makeBar() {
    auto* bar = new QHBoxLayout;
    bar->setSpacing(2);
    bar->addWidget(makePaneCaption(tr("Image basket"), this));
    bar->addStretch(1);
    for (const char* name :
         {"cmdPagesNew", "cmdPagesOpen", "cmdPagesSave", "cmdPagesDelete", "cmdBatchPrint"})
        bar->addWidget(m_actions.makeButton(name, this));
    QToolButton* save = m_actions.makeMenuButton("cmdSaveAs", "mnuSaveAsParent",
                                                 {"mnuSaveAsJpeg", "mnuSaveAsAlbum", "mnuSaveAsSaver"}, this);
    bar->addWidget(save);
    (new ShortenedButtons(*bar, *this))->add(save);
    return bar;
}

void BasketPane::connectList() {
    m_list->list().setTextCheck([this](const QString& title) { return acceptTitle(title); });
    const auto choose = [this] { Q_EMIT rowChosen(m_list->list(), m_list->list().selectedIndex()); };
    connect(m_list, &ListControl::rowClicked, this, [this, choose] {
        if (m_list->list().selectedRows().size() <= 1) // else no picture is loaded
            choose();
    });
    connect(m_list, &ListControl::keySelected, this, choose);
    connect(m_list, &ListControl::rowDoubleClicked, this, &BasketPane::addDescription);
    connect(m_list, &ListControl::deleteReleased, this, &BasketPane::cmdPagesDelete);
    connect(m_list->view()->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &BasketPane::enableRowCommands);
    connect(&m_list->list(), &QAbstractItemModel::modelReset, this, &BasketPane::enableRowCommands);
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
    join("mnuSaveAsAlbum", &BasketPane::saveAsAlbum);
    join("mnuSaveAsSaver", &BasketPane::saveAsSaver);
    connect(&m_actions.action("mnuAddDescription"), &QAction::triggered, this, &BasketPane::addDescription);
    connect(&m_actions.action("mnuRenameTitle"), &QAction::triggered, this, &BasketPane::renameTitle);
    connect(&m_actions.action("mnuMoveUp"), &QAction::triggered, this, [this] { moveRows(-1); });
    connect(&m_actions.action("mnuMoveDown"), &QAction::triggered, this, [this] { moveRows(1); });
    // These keys work where the rows are, not in the other lists.
    for (const char* name : {"mnuRenameTitle", "mnuMoveUp", "mnuMoveDown"}) {
        m_actions.action(name).setShortcutContext(Qt::WidgetWithChildrenShortcut);
        m_list->addAction(&m_actions.action(name));
    }
    // The list itself removes its rows, when the key is released.
    m_actions.action("cmdPagesDelete").setShortcutContext(Qt::WidgetShortcut);
    join("mnuUndo", &BasketPane::mnuUndo);
    join("mnuRedo", &BasketPane::mnuRedo);
    for (const char* name : {"mnuAddDescription", "mnuUndo", "mnuRedo"})
        addAction(&m_actions.action(name)); // for its shortcut
    connect(&m_actions.action("mnuSaveRowAs"), &QAction::triggered, this,
            [this] { Q_EMIT saveRowAs(m_list->list().selectedIndex()); });
    makeContextMenu();
    enableRowCommands();
}

void BasketPane::makeContextMenu() {
    QMenu* menu = m_actions.makeMenu("mnuContext",
                                     {"mnuSaveRowAs", "mnuAddDescription", "mnuRenameTitle", "cmdPagesDelete",
                                      "mnuMoveUp", "mnuMoveDown", "mnuUndo", "mnuRedo"},
                                     this);
    QAction* undo = &m_actions.action("mnuUndo");
    menu->insertSeparator(&m_actions.action("mnuMoveUp"));
    addSortMenu(*menu, undo, m_list->list());
    menu->insertSeparator(undo);
    connect(m_list, &ListControl::menuWanted, menu,
            [menu](const QPoint& position) { menu->popup(position); });
}

void BasketPane::moveRows(int step) {
    Q_EMIT rowsMoved(step);
    m_list->view()->scrollTo(m_list->list().index(m_list->list().selectedIndex(), 0));
}

/// Rows move and go while the dialog is open, and an adding goes on.
void BasketPane::addDescription() {
    ListView& list = m_list->list();
    const QPersistentModelIndex row = list.index(list.selectedIndex(), 0);
    if (!row.isValid())
        return;
    auto* dialog = new frmAlbumDescription(list, row.row(), this);
    deleteWhenClosed(*dialog);
    connect(dialog, &QDialog::accepted, this, [this, dialog, row] {
        if (row.isValid())
            Q_EMIT described(row.row(), dialog->description());
    });
    dialog->open();
}

void BasketPane::renameTitle() {
    const int row = m_list->list().selectedIndex();
    if (row >= 0)
        m_list->editText(row);
}

/// Titles become file names: the list keeps the old one where a file could not have the new one.
bool BasketPane::acceptTitle(const QString& title) {
    const QString fault = titleFault(title);
    Q_EMIT titleChecked(fault);
    return fault.isEmpty();
}

} // namespace tarsel
