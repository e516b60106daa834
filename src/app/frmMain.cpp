// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/frmMain.h"

#include "app/BasketPane.h"
#include "app/BrowsePane.h"
#include "app/FolderPane.h"
#include "app/FolderTree.h"
#include "app/ImageBoxView.h"
#include "app/MainActions.h"
#include "app/MetadataPane.h"
#include "app/PictureImage.h"
#include "app/PreviewPane.h"
#include "app/StatusPanels.h"
#include "app/TitleFault.h"
#include "app/frmAlbumDescription.h"
#include "collections/BasketActions.h"
#include "configuration/ConfigRecord.h"
#include "controls/LineIcon.h"
#include "controls/ListControl.h"
#include "controls/ProgressBar.h"
#include "controls/Splitter.h"
#include "output/forms/SaveAsSinglePage.h"
#include "output/forms/frmBatchResults.h"
#include "tasks/TaskBasketActions.h"

#include <QPushButton>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QVBoxLayout>
#include <utility>

namespace tarsel {

frmMain::frmMain(StartupOptions options) :
    m_options(std::move(options)), pbQueue(new ProgressBar), m_folderView(m_workspace.lists(*pbQueue)),
    m_basket(m_workspace.lists(*pbQueue), {}),
    m_preview({m_workspace.lvFolder, m_workspace.lvPages, m_workspace.lvExif, m_workspace.lvIPTC,
               m_workspace.tasks, m_workspace.ibMain, m_workspace.sbMain}),
    m_actions(mainActions(), mainActionsContext),
    m_browsePane(new BrowsePane(m_workspace.tasks, m_actions, this)),
    m_folderPane(new FolderPane(m_workspace.lvFolder, m_actions, this)),
    m_basketPane(new BasketPane(m_workspace.lvPages, m_actions, this)),
    m_previewPane(new PreviewPane(m_workspace.ibMain, m_actions, this)),
    m_metadataPane(new MetadataPane(m_workspace.lvExif, m_workspace.lvIPTC, this)) {
    setObjectName(QStringLiteral("frmMain"));
    setWindowIcon(lineIcon(QStringLiteral("iDetailIcon")));
    arrangePanes();
    joinFolderPane();
    joinBasketPane();
    joinTaskBasket();
    joinPreview();
}

frmMain::~frmMain() = default;

// --- the window's parts

void frmMain::arrangePanes() {
    splLeft = new Splitter(Qt::Vertical, m_folderPane, m_basketPane, this);
    splLeft->setObjectName(QStringLiteral("splLeft"));
    splRight = new Splitter(Qt::Horizontal, m_browsePane, splLeft, this);
    splRight->setObjectName(QStringLiteral("splRight"));
    splView = new Splitter(Qt::Vertical, m_previewPane, m_metadataPane, this);
    splView->setObjectName(QStringLiteral("splView"));
    splMain = new Splitter(Qt::Horizontal, splRight, splView, this);
    splMain->setObjectName(QStringLiteral("splMain"));

    auto* centre = new QWidget(this);
    auto* rows = new QVBoxLayout(centre);
    rows->setContentsMargins(8, 8, 8, 4);
    rows->addWidget(splMain);
    setCentralWidget(centre);

    auto* statusBar = new StatusBar(m_workspace.sbMain, statusPanels, this);
    statusBar->setObjectName(QStringLiteral("sbMain"));
    pbQueue->setObjectName(QStringLiteral("pbQueue"));
    pbQueue->setFixedWidth(180);
    statusBar->addPermanentWidget(pbQueue);
    pbQueue->hide();
    statusBar->addPermanentWidget(makeCancelAdding());
    setStatusBar(statusBar);
}

/// The button beside the bar, also reached by Esc, that ends the adding of files.
QWidget* frmMain::makeCancelAdding() {
    auto* cmdCancelAdding = new QPushButton(tr("Cancel"), this);
    cmdCancelAdding->setObjectName(QStringLiteral("cmdCancelAdding"));
    cmdCancelAdding->setToolTip(tr("Stop adding files to the basket. (Esc)"));
    cmdCancelAdding->setFocusPolicy(Qt::NoFocus);
    cmdCancelAdding->hide();
    connect(cmdCancelAdding, &QPushButton::clicked, this, [this] { m_basket.stopAdding(); });
    auto* escape = new QShortcut(Qt::Key_Escape, this);
    escape->setEnabled(false);
    connect(escape, &QShortcut::activated, this, [this] { m_basket.stopAdding(); });
    m_basket.addingChanged = [this, cmdCancelAdding, escape](bool adding) {
        m_folderView.lendBar(adding);
        cmdCancelAdding->setVisible(adding);
        escape->setEnabled(adding);
    };
    return cmdCancelAdding;
}

/// Titles become file names: the list keeps the old one, and the status line says why.
bool frmMain::acceptTitle(const QString& title) {
    const QString fault = titleFault(title);
    if (!fault.isEmpty())
        SetStatus(fault);
    return fault.isEmpty();
}

void frmMain::joinFolderPane() {
    ListControl& list = m_folderPane->lvFolder();
    list.setPixmapMaker(pixmapOf);
    m_folderView.visibleRows = [&list] {
        const ListControl::RowRange rows = list.visibleRows();
        return std::pair(rows.first, rows.last);
    };
    connect(&list, &ListControl::viewMoved, &m_folderView, &FolderView::preferVisibleRows);
    connect(&m_browsePane->ftvBrowse(), &FolderTree::folderSelected, this, &frmMain::listFolder);
    connect(m_folderPane, &FolderPane::cmdAddToQueue, this, &frmMain::addSelectionToBasket);
    connect(m_folderPane, &FolderPane::cmdThumbnailFolder, this, &frmMain::showThumbnails);
    connect(m_folderPane, &FolderPane::cmdDetailFolder, this, &frmMain::showDetails);
    connect(m_folderPane, &FolderPane::cmdRefreshFolder, this,
            [this] { listFolder(m_folderView.currentFolder()); });
    connect(&list, &ListControl::entered, this, [this] { ActiveList = QStringLiteral("lvFolder"); });
    connect(&list, &ListControl::dragStarted, this, [this] { Dragging = true; });
    connect(&list, &ListControl::rowClicked, this, &frmMain::clickFolderRow);
    connect(&list, &ListControl::arrowReleased, this, &frmMain::clickFolderRow);
}

void frmMain::joinBasketPane() {
    ListControl& list = m_basketPane->lvPages();
    list.setPixmapMaker(pixmapOf);
    list.acceptRowsOf(&m_folderPane->lvFolder());
    list.acceptRowsOf(&list);
    list.list().setTextCheck([this](const QString& title) { return acceptTitle(title); });
    connect(m_basketPane, &BasketPane::cmdPagesNew, this, [this] { m_basket.cmdPagesNew(); });
    connect(m_basketPane, &BasketPane::cmdPagesDelete, this, [this] { m_basket.cmdPagesDelete(); });
    connect(m_basketPane, &BasketPane::cmdPagesOpen, this, [this] {
        CollectionLists shared = m_workspace.lists(*pbQueue);
        basketActions::cmdPagesOpen(m_basket, shared);
    });
    connect(m_basketPane, &BasketPane::cmdPagesSave, this,
            [this] { basketActions::cmdPagesSave(m_workspace.lvPages); });
    connect(m_basketPane, &BasketPane::saveAsJpegFiles, this, &frmMain::subSaveAsSinglePage);
    connect(m_basketPane, &BasketPane::addDescription, this, &frmMain::addDescription);
    connect(m_basketPane, &BasketPane::renameTitle, this, [this, &list] {
        if (m_workspace.lvPages.selectedIndex() >= 0)
            list.editText(m_workspace.lvPages.selectedIndex());
    });
    connect(&list, &ListControl::entered, this, [this] { ActiveList = QStringLiteral("lvPages"); });
    connect(&list, &ListControl::rowClicked, this, [this, &list] { showSelectedRow(list); });
    connect(&list, &ListControl::arrowReleased, this, [this, &list] { showSelectedRow(list); });
    connect(&list, &ListControl::rowsDropped, this, &frmMain::dropRows);
}

void frmMain::joinTaskBasket() {
    connect(m_browsePane, &BrowsePane::cmdEditBar, this, [this](int index) {
        if (taskBasketActions::cmdEditBar(index, m_workspace.tasks))
            m_preview.showTasks();
    });
    connect(&m_browsePane->lvEdit(), &ListControl::rowClicked, &m_preview, &Preview::showTasks);
    connect(&m_browsePane->lvEdit(), &ListControl::arrowReleased, &m_preview, &Preview::showTasks);
}

void frmMain::joinPreview() {
    connect(&m_preview, &Preview::pictureChanged, &m_previewPane->ibMain(), &ImageBoxView::boxChanged);
    connect(&m_preview, &Preview::metadataRead, m_metadataPane,
            [this](MetadataTab tab) { m_metadataPane->showTab(int(tab)); });
    connect(m_previewPane, &PreviewPane::previewTypeChosen, this, [this](int type) {
        m_preview.OptimizedPreview = type != 0;
        m_preview.rebuild();
    });
    connect(m_previewPane, &PreviewPane::cmdPreviewPrevious, this, [this] { showNeighbour(-1); });
    connect(m_previewPane, &PreviewPane::cmdPreviewNext, this, [this] { showNeighbour(1); });
}

// --- the course of the run

void frmMain::SetStatus(const QString& text) {
    m_workspace.sbMain.setPanel(QStringLiteral("status"), text);
}

void frmMain::listFolder(const QString& path) {
    if (!path.isEmpty())
        m_folderView.subShowFilesInFolder(path);
}

void frmMain::showDetails() {
    ConfigRecord.FolderView = 3;
    m_folderPane->lvFolder().setForm(ListControl::Form::Details);
    m_folderView.cmdDetailFolder();
    if (m_folderView.isRunning())
        listFolder(m_folderView.currentFolder());
}

/// A listing that runs in the other form, and a list without thumbnails, start again.
void frmMain::showThumbnails() {
    ConfigRecord.FolderView = 0;
    m_folderPane->lvFolder().setForm(ListControl::Form::Thumbnails);
    if (m_folderView.isRunning() || m_workspace.ilFolder.count() == 0) {
        m_folderView.settings.folderView = 0;
        listFolder(m_folderView.currentFolder());
    } else {
        m_folderView.cmdThumbnailFolder();
    }
}

void frmMain::addSelectionToBasket() {
    if (!m_batchRunning)
        m_basket.cmdAddToQueue_Click();
}

void frmMain::dropRows(const ListControl* source, int row) {
    if (source == &m_basketPane->lvPages())
        m_basket.MoveRowsTo(row);
    else
        m_basket.AddToBasketByDrag();
}

/// A click that leaves several rows selected, as before a drag, loads no picture.
void frmMain::clickFolderRow() {
    Dragging = m_workspace.lvFolder.selectedRows().size() > 1;
    if (!Dragging)
        showSelectedRow(m_folderPane->lvFolder());
}

void frmMain::showSelectedRow(ListControl& control) {
    m_preview.ShowRow(control.list(), control.list().selectedIndex());
}

/// The row before or after the selected one of the list in use; at the ends nothing happens.
void frmMain::showNeighbour(int step) {
    ListControl& control =
        ActiveList == QLatin1String("lvPages") ? m_basketPane->lvPages() : m_folderPane->lvFolder();
    ListView& list = control.list();
    const int selected = list.selectedIndex();
    const int row = selected + step;
    if (selected < 0 || row < 0 || row >= list.count())
        return;
    list.selectOnly(row);
    m_preview.ShowRow(list, row);
    control.showRow(row);
    control.setFocus();
}

void frmMain::addDescription() {
    const int row = m_workspace.lvPages.selectedIndex();
    if (row >= 0)
        frmAlbumDescription(m_workspace.lvPages, row, this).exec();
}

/// Preview and folder show what a batch would write now.
void frmMain::takeUpright() {
    const bool upright = ConfigRecord.BatchSave.UprightByExif == 1;
    if (m_folderView.settings.upright == upright || !isVisible())
        return;
    m_folderView.settings.upright = m_basket.settings.upright = m_preview.upright = upright;
    m_preview.reload();
    m_folderView.makeThumbnailsAgain();
    QMetaObject::invokeMethod(
        this, [this] { m_basket.makeThumbnailsAgain(); }, Qt::QueuedConnection);
}

void frmMain::subSaveAsSinglePage() {
    if (m_batchRunning)
        return;
    const QScopedValueRollback running(m_batchRunning, true);
    m_basketPane->setRunning(true);
    const std::vector<RowResult> results = tarsel::subSaveAsSinglePage(
        {m_workspace.lvPages, m_workspace.tasks.lvEditBatch, m_workspace.ibTemp, ConfigRecord.BatchSave},
        this);
    m_basketPane->setRunning(false);
    takeUpright();
    if (results.empty() || !isVisible())
        return;
    SetStatus(resultSummary(results));
    (new frmBatchResults(results, this))->show();
}

} // namespace tarsel
