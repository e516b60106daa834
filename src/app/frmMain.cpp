// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/frmMain.h"

#include "app/AltLetters.h"
#include "app/DialogFit.h"
#include "app/FirstHints.h"
#include "app/InstanceLock.h"
#include "app/MainActions.h"
#include "app/PaneKeys.h"
#include "app/RunEndNotice.h"
#include "app/StatusPanels.h"
#include "app/TaskPane.h"
#include "app/TipSwitch.h"
#include "app/frmSettings.h"
#include "base/DialogSubject.h"
#include "base/Dialogs.h"
#include "base/ErrorTrap.h"
#include "collections/BasketActions.h"
#include "collections/CachedThumbnails.h"
#include "collections/LastBasket.h"
#include "collections/OfferedFiles.h"
#include "collections/PageFiles.h"
#include "collections/RowRun.h"
#include "collections/TypedPath.h"
#include "collections/forms/BasketPane.h"
#include "collections/forms/BrowsePane.h"
#include "collections/forms/CancelAddingButton.h"
#include "collections/forms/FolderPane.h"
#include "collections/forms/FolderTree.h"
#include "collections/forms/ImageBoxView.h"
#include "collections/forms/PreviewPane.h"
#include "configuration/ConfigRecord.h"
#include "controls/DeletedDialog.h"
#include "controls/ElidedLabel.h"
#include "controls/ListControl.h"
#include "controls/NoticeBar.h"
#include "controls/ProgressBar.h"
#include "controls/Splitter.h"
#include "controls/TabOrder.h"
#include "imaging/Upright.h"
#include "metadata/forms/MetadataPane.h"
#include "output/forms/SaveAsSinglePage.h"
#include "output/forms/frmBatchResults.h"
#include "output/forms/frmSaveAdvanced.h"
#include "publishing/forms/MakeJoined.h"
#include "publishing/forms/frmAlbum.h"
#include "tasks/TaskBasketActions.h"
#include "tasks/modProcessTasks.h"

#include <QApplication>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QScopedValueRollback>
#include <QTimer>
#include <QVBoxLayout>
#include <cmath>
#include <utility>

namespace tarsel {

frmMain::frmMain(StartupOptions options) :
    m_options(std::move(options)), pbQueue(new ProgressBar), m_folderView(m_workspace.lists(*pbQueue)),
    m_basket(m_workspace.lists(*pbQueue), {}),
    m_preview({m_workspace.lvFolder, m_workspace.lvPages, m_workspace.lvExif, m_workspace.lvIPTC,
               m_workspace.tasks, m_workspace.ibMain, m_workspace.sbMain}),
    m_imageDocument(ConfigRecord.SaveAdvanced, this),
    m_printing({m_preview, m_workspace.lvPages, m_workspace.tasks, m_workspace.ibMain, ConfigRecord.Print,
                [this](bool isRun) { setRunning(isRun); }},
               this),
    m_capture(*this, systemScreen), m_actions(mainActions(), mainActionsContext),
    m_browsePane(new BrowsePane(m_workspace.tasks, m_actions, this)),
    m_folderPane(new FolderPane(m_folderView, m_workspace.lvFolder, m_actions, this)),
    m_basketPane(new BasketPane(m_workspace.lvPages, m_actions, this)),
    m_previewPane(new PreviewPane(m_workspace.ibMain, m_actions, this)),
    m_metadataPane(new MetadataPane(m_workspace.lvExif, m_workspace.lvIPTC, m_actions, this)),
    m_taskPane(new TaskPane(m_workspace.tasks, ConfigRecord.Tasks, m_actions, this)),
    m_notices(new NoticeBar(this)), m_hints(new FirstHints(*m_notices, ConfigRecord, this)),
    m_metadataEditor(m_workspace.ibMain, m_workspace.lvExif, m_workspace.lvIPTC, this),
    m_workflow(m_preview, m_workspace.tasks, *m_taskPane) {
    setObjectName(QStringLiteral("frmMain"));
    ActiveList = &m_folderPane->lvFolder();
    setAcceptDrops(true);
    if (!m_options.thumbnailFolder.isEmpty()) {
        m_folderView.readThumbnail = m_basket.readThumbnail =
            cachedThumbnails(m_options.thumbnailFolder, m_options.programFolder);
        m_preview.readStored = storedPictures(m_options.thumbnailFolder);
    }
    qApp->installEventFilter(new TipSwitch(this));
    qApp->installEventFilter(new DialogFit(this));
    qApp->installEventFilter(new AltLetters(this));
    arrangePanes();
    connectFolderPane();
    connectBasketPane();
    connectTaskBasket();
    connectPreview();
    connectMetadata();
    connectEditing();
    connectPrinting();
    connectPaneKeys();
    connectPublishing();
    connectCapture();
    connectTwain();
    connectHints();
    connectHelp();
    connect(&m_actions.action("cmdBrowseSettings"), &QAction::triggered, this,
            &frmMain::cmdBrowseSettings_Click);
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
    splMain->setSplitterRange(20, 90); // the record can't hold 10, its sign of damage

    auto* centre = new QWidget(this);
    auto* rows = new QVBoxLayout(centre);
    rows->setContentsMargins(8, 8, 8, 4);
    auto* columns = new QHBoxLayout;
    columns->addWidget(splMain, 1);
    columns->addWidget(m_taskPane);
    rows->addLayout(columns, 1);
    rows->addWidget(m_notices);
    setCentralWidget(centre);

    auto* statusBar = new StatusBar(m_workspace.sbMain, statusPanels(), this);
    statusBar->setObjectName(QStringLiteral("sbMain"));
    addProgress(*statusBar);
    setStatusBar(statusBar);
    orderTabsByLayout(
        {m_browsePane, m_folderPane, m_basketPane, m_previewPane, m_metadataPane, m_taskPane, m_notices});
}

/// The name of the file in work, the bar, and the button that ends the loop.
void frmMain::addProgress(StatusBar& statusBar) {
    constexpr int roomyWidth = 1000; // a narrower window needs the room for the panels
    auto* lblQueue = new ElidedLabel(this);
    lblQueue->setObjectName(QStringLiteral("lblQueue"));
    lblQueue->setFixedWidth(fontMetrics().averageCharWidth() * 18);
    connect(pbQueue, &ProgressBar::subjectChanged, lblQueue, [this, lblQueue](const QString& fileName) {
        lblQueue->setText(fileName);
        lblQueue->setVisible(!fileName.isEmpty() && width() >= roomyWidth);
    });
    pbQueue->setObjectName(QStringLiteral("pbQueue"));
    pbQueue->setFixedWidth(180);
    auto* cmdCancelAdding = new CancelAddingButton(this);
    for (QWidget* each : {static_cast<QWidget*>(lblQueue), static_cast<QWidget*>(pbQueue),
                          static_cast<QWidget*>(cmdCancelAdding)}) {
        statusBar.addPermanentWidget(each);
        each->hide();
    }
    connect(cmdCancelAdding, &CancelAddingButton::addingCancelled, this, [this] { m_basket.stopAdding(); });
    connect(cmdCancelAdding, &CancelAddingButton::listingCancelled, &m_folderView, &FolderView::cancel);
    connect(&m_folderView, &FolderView::runningChanged, cmdCancelAdding,
            [this, cmdCancelAdding] { cmdCancelAdding->setListing(m_folderView.isRunning()); });
    m_basket.addingChanged = [this, cmdCancelAdding](bool adding) {
        m_folderView.lendBar(adding);
        offerDialogs(!adding && !isRunning());
        cmdCancelAdding->setAdding(adding);
        m_basketPane->setAdding(adding);
        showHistory();
    };
}

void frmMain::connectFolderPane() {
    ListControl& list = m_folderPane->lvFolder();
    connect(&m_browsePane->ftvBrowse(), &FolderTree::folderSelected, this, &frmMain::listFolder);
    connect(m_browsePane, &BrowsePane::fileChosen, m_folderPane, &FolderPane::selectFile);
    connect(m_browsePane, &BrowsePane::pathRefused, this, &frmMain::SetStatus);
    connect(m_folderPane, &FolderPane::fileMissing, this, &frmMain::SetStatus);
    connect(m_folderPane, &FolderPane::thumbnailSizeChosen, this, &frmMain::chooseThumbnailSize);
    connect(m_folderPane, &FolderPane::cmdAddToQueue, this, &frmMain::addSelectionToBasket);
    connect(m_folderPane, &FolderPane::formChosen, this,
            [](int folderView) { ConfigRecord.FolderView = quint8(folderView); });
    list.acceptFiles();
    connect(&list, &ListControl::filesOffered, this, &frmMain::showOfferedFile);
    connect(m_folderPane, &FolderPane::rowChosen, &m_preview, &Preview::ShowRow);
    connect(&list, &ListControl::entered, this, [this, &list] { ActiveList = &list; });
}

void frmMain::connectBasketPane() {
    ListControl& list = m_basketPane->lvPages();
    list.acceptRowsOf(&m_folderPane->lvFolder());
    m_basket.visibleRows = [&list] {
        const ListControl::RowRange rows = list.visibleRows();
        return std::pair(rows.first, rows.last);
    };
    connect(m_basketPane, &BasketPane::cmdPagesNew, this, [this] { changeBasket(&Basket::cmdPagesNew); });
    connect(m_basketPane, &BasketPane::cmdPagesDelete, this,
            [this] { changeBasket(&Basket::cmdPagesDelete); });
    connect(m_basketPane, &BasketPane::described, this,
            [this](int row, const QString& text) { m_basket.describe(row, text); });
    connect(m_basketPane, &BasketPane::rowsMoved, this, [this](int step) { m_basket.moveSelected(step); });
    connect(m_basketPane, &BasketPane::mnuUndo, this, &frmMain::undo);
    connect(m_basketPane, &BasketPane::mnuRedo, this, [this] { changeBasket(&Basket::redo); });
    m_basket.history().changed = [this] { showHistory(); };
    showHistory();
    connect(m_basketPane, &BasketPane::cmdPagesOpen, this, [this] {
        CollectionLists shared = m_workspace.lists(*pbQueue);
        basketActions::cmdPagesOpen(m_basket, shared);
    });
    connect(m_basketPane, &BasketPane::cmdPagesSave, this,
            [this] { basketActions::cmdPagesSave(m_workspace.lvPages); });
    connect(m_basketPane, &BasketPane::saveAsJpegFiles, this, &frmMain::subSaveAsSinglePage);
    connect(m_basketPane, &BasketPane::saveAsAlbum, this, &frmMain::openAlbum);
    connect(&m_actions, &ActionTable::triggering, &list, &ListControl::endEditing);
    connect(m_basketPane, &BasketPane::rowChosen, &m_preview, &Preview::ShowRow);
    connect(m_basketPane, &BasketPane::titleChecked, this,
            [this, shown = QString()](const QString& fault) mutable {
                if (!fault.isEmpty() ||
                    (!shown.isEmpty() && m_workspace.sbMain.panel(QStringLiteral("status")) == shown))
                    SetStatus(fault);
                shown = fault;
            });
    connect(&list, &ListControl::entered, this, [this, &list] { ActiveList = &list; });
    connect(&list, &ListControl::rowsDropped, this, &frmMain::dropRows);
    connect(&list, &ListControl::filesOffered, this, [this](const QList<QUrl>& files) {
        if (!openOfferedTasks(files) && !isRunning())
            m_basket.addOfferedFiles(files);
    });
}

void frmMain::connectTaskBasket() {
    connect(m_browsePane, &BrowsePane::cmdEditBar, this, [this](int index) {
        m_workflow.changeRows([this, index] {
            return taskBasketActions::cmdEditBar(index, m_workspace.tasks, m_workflow.isOpen());
        });
    });
    for (const ListControl* list : {&m_browsePane->lvEdit(), &m_taskPane->lvEditPreview()}) {
        connect(list, &ListControl::rowClicked, &m_workflow, &TaskWorkflow::rowClicked);
        connect(list, &ListControl::keySelected, &m_workflow, &TaskWorkflow::rowClicked);
        connect(list, &ListControl::deleteReleased, &m_actions.action("cmdEditBar_3"), &QAction::trigger);
    }
}

void frmMain::connectMetadata() {
    connect(&m_preview, &Preview::metadataRead, m_metadataPane, [this](MetadataTab tab) {
        m_metadataPane->showTab(int(tab));
        m_metadataPane->setVisible(!m_workflow.isOpen());
    });
    connect(&m_preview, &Preview::metadataAbsent, m_metadataPane, &QWidget::hide);
    m_metadataEditor.isLoading = [this] { return m_preview.isBusy(); };
    connect(m_metadataPane, &MetadataPane::tabShown, &m_metadataEditor,
            [this](int tab) { m_metadataEditor.CurrentMetadataTab = MetadataEditor::Tab(tab); });
    connect(m_metadataPane, &MetadataPane::cmdEXIFBar, &m_metadataEditor, &MetadataEditor::cmdEXIFBar);
    connect(m_metadataPane, &MetadataPane::cmdIPTCBar, &m_metadataEditor, &MetadataEditor::cmdIPTCBar);
    for (const ListControl* list : {&m_metadataPane->lvExif(), &m_metadataPane->lvIPTC()})
        connect(list, &ListControl::deleteReleased, &m_metadataEditor, &MetadataEditor::subDeleteAttribute);
    connect(&m_metadataEditor, &MetadataEditor::metadataChanged, &m_preview, &Preview::showMetadataPanel);
    connect(&m_metadataEditor, &MetadataEditor::slowChanged, m_metadataPane, &MetadataPane::setBusy);
    connect(&m_metadataEditor, &MetadataEditor::slowChanged, this, [this](bool isSlow) {
        SetStatus(isSlow ? tr("Writing metadata into %1").arg(QFileInfo(m_preview.shownPath()).fileName())
                         : QString());
    });
    connect(&m_metadataEditor, &MetadataEditor::remarked, this, &frmMain::SetStatus);
    connect(&m_metadataEditor, &MetadataEditor::ended, this, [this] {
        if (std::exchange(m_closesAfterWriting, false))
            close();
    });
}

void frmMain::connectPreview() {
    ImageBoxView& view = m_previewPane->ibMain();
    connect(&m_preview, &Preview::pictureChanged, m_previewPane,
            [this] { m_previewPane->pictureChanged(m_preview.shown()); });
    connect(&m_preview, &Preview::loadingBegun, &view, &ImageBoxView::expect);
    connect(&view, &ImageBoxView::containerResized, this,
            [this, &view] { m_preview.view = view.container(); });
    connect(&view, &ImageBoxView::zoomChanged, this, &frmMain::updateZoom);
    connect(m_previewPane, &PreviewPane::previewFitChosen, this, &frmMain::showZoom);
    connect(m_previewPane, &PreviewPane::previewTypeChosen, this, [this](int type) {
        m_preview.OptimizedPreview = type != 0;
        m_preview.rebuild();
        m_workflow.pictureRebuilt();
    });
    connect(m_previewPane, &PreviewPane::saveImageDocument, this,
            [this] { saveShown(m_preview.shownPath(), &frmMain::saveImageDocument); });
    connect(m_previewPane, &PreviewPane::saveInteractively, this,
            [this] { saveShown(m_preview.shownPath(), &frmMain::openSaveAdvanced); });
    connect(m_basketPane, &BasketPane::saveRowAs, this, &frmMain::saveRowAs);
    connect(&m_preview, &Preview::loadingBegun, this, [this] { m_pathToSave.clear(); });
    connect(&m_preview, &Preview::pictureChanged, this, &frmMain::savePictureWanted,
            Qt::QueuedConnection); // its dialog must not hold up what the preview has still to do
    connect(&m_imageDocument.background(), &BackgroundSave::progressed, this, &frmMain::SetStatus);
    connect(&m_imageDocument.background(), &BackgroundSave::ended, this, [this](bool hasFailed) {
        if (std::exchange(m_closesAfterWriting, false) && !hasFailed)
            close();
    });
    connect(&m_imageDocument.background(), &BackgroundSave::saved, this, [this] {
        if (!m_saveAdvanced || m_saveAdvanced->shows(m_workspace.ibMain.picture()))
            m_workflow.correctionSaved();
    });
    connect(&m_imageDocument.background(), &BackgroundSave::saved, &m_folderView,
            [this](const QString& path) { m_folderView.showWritten({path}); });
    connect(m_previewPane, &PreviewPane::cmdPreviewPrevious, this, [this] { showNeighbour(-1); });
    connect(m_previewPane, &PreviewPane::cmdPreviewNext, this, [this] { showNeighbour(1); });
}

void frmMain::connectPaneKeys() {
    auto* keys = new PaneKeys(*this, m_actions);
    BrowsePane& browse = *m_browsePane;
    MetadataPane& metadata = *m_metadataPane;
    keys->add("showFolders", browse, browse.ftvBrowse(), [&browse] { browse.showTab(0); });
    keys->add("showTasks", browse, browse.lvEdit(), [&browse] { browse.showTab(1); });
    keys->add("showFiles", *m_folderPane, m_folderPane->lvFolder());
    keys->add("showBasket", *m_basketPane, m_basketPane->lvPages());
    keys->add("showPicture", *m_previewPane, m_previewPane->ibMain());
    keys->add("showExif", metadata, metadata.lvExif(), [&metadata] { metadata.focusList(0); });
    keys->add("showIptc", metadata, metadata.lvIPTC(), [&metadata] { metadata.focusList(1); });
    keys->add(nullptr, *m_taskPane, m_taskPane->lvEditPreview());
}

// --- the course of the run

void frmMain::showZoom() {
    m_zoomText = QStringLiteral("%1%").arg(std::nearbyint(m_workspace.ibMain.Zoom));
    SetStatus(m_zoomText);
}

/// Other texts stay until the user asks for the zoom again.
void frmMain::updateZoom() {
    if (!m_zoomText.isEmpty() && m_workspace.sbMain.panel(QStringLiteral("status")) == m_zoomText)
        showZoom();
}

void frmMain::SetStatus(const QString& text) {
    m_workspace.sbMain.setPanel(QStringLiteral("status"), text);
}

/// The picture of another folder doesn't stay, unless it is the basket's.
void frmMain::listFolder(const QString& folder) {
    const bool isOther = folder != m_folderView.currentFolder();
    m_folderView.subShowFilesInFolder(folder);
    if (folder != m_options.samplesFolder)
        m_hints->done(FirstHints::OwnPictures);
    if (isOther)
        m_preview.dropUnselected();
}

void frmMain::addSelectionToBasket() {
    if (!isRunning())
        m_basket.cmdAddToQueue_Click();
}

void frmMain::dropRows(const ListControl* source, int row) {
    if (source == &m_basketPane->lvPages())
        m_basket.MoveRowsTo(row);
    else
        m_basket.AddToBasketByDrag();
}

/// Shows the row that is selected then; a picture of a removed row doesn't stay.
void frmMain::changeBasket(void (Basket::*change)()) {
    ListView& pages = m_workspace.lvPages;
    const auto selection = [&] {
        const int row = pages.selectedIndex();
        return std::pair(pages.count(), row < 0 ? QString() : pages.row(row).tag);
    };
    const auto before = selection();
    (m_basket.*change)();
    if (selection() == before)
        return;
    if (pages.isEmpty())
        m_preview.dropUnselected();
    else
        m_preview.ShowRow(pages, pages.selectedIndex());
}

void frmMain::showHistory() {
    const bool isFirst = m_workspace.lvPages.isEmpty() && !m_basket.history().undoable();
    if (!isFirst && std::exchange(m_offersAcquired, false))
        m_notices->withdraw(acquiredNotice());
    m_basketPane->showHistory(m_basket.history(),
                              isFirst && (m_offersAcquired || lastBasket::isKept(m_options.programFolder)));
}

/// Shows the folder that was dropped, or that of the file, which is selected there.
void frmMain::showOfferedFile(const QList<QUrl>& files) {
    if (openOfferedTasks(files) || openOfferedBasket(files))
        return;
    const QString path = localPath(files.value(0));
    if (path.isEmpty())
        return SetStatus(skippedText({{}, 1, 0}, 0));
    m_browsePane->question().ask(
        [this, path] { return [this, place = placeOf(path)] { showPlace(place); }; });
}

void frmMain::showPlace(const Place& place) {
    if (place.folder.isEmpty())
        return SetStatus(skippedText({{}, 0, 1}, 0));
    m_browsePane->ftvBrowse().selectFolder(place.folder);
    if (!place.file.isEmpty())
        m_folderPane->selectFile(place.file);
}

/// Of the box and of the user.
void frmMain::dropSelection() {
    m_workspace.ibMain.ClearSelection();
    m_previewPane->ibMain().selection().cancel();
}

/// The row before or after the selected one of the list in use; at the ends nothing happens.
void frmMain::showNeighbour(int step) {
    dropSelection();
    m_preview.ShowRow(ActiveList->list(), ActiveList->selectNeighbour(step));
}

void frmMain::cmdBrowseSettings_Click() {
    auto* dialog = new frmSettings(ConfigRecord, m_actions.shortcuts(), this);
    deleteWhenClosed(*dialog);
    connect(dialog, &QDialog::accepted, this, &frmMain::subUpdateForm);
    dialog->open(); // an adding of files goes on
}

void frmMain::chooseThumbnailSize(QSize size) {
    ConfigRecord.FolderThumbWidth = qint16(size.width());
    ConfigRecord.FolderThumbHeight = qint16(size.height());
    m_folderThumb = {size.width(), size.height()};
    m_folderView.changeThumbnailSize(m_folderThumb);
}

/// The dialog opens over the picture on show, which takes its time to load.
void frmMain::saveRowAs(int row) {
    ListView& pages = m_workspace.lvPages;
    if (row < 0)
        return;
    const QString path = pages.row(row).tag;
    m_preview.ShowRow(pages, row);
    saveShown(path, &frmMain::saveImageDocument);
}

void frmMain::saveShown(const QString& path, void (frmMain::*save)()) {
    m_pathToSave = path;
    m_save = save;
    savePictureWanted();
}

/// A picture that is being prepared again, upright or with the tasks, is saved as it will be.
void frmMain::savePictureWanted() {
    if (m_pathToSave.isEmpty() || m_preview.isBusy() || m_preview.shownPath() != m_pathToSave)
        return;
    if (QApplication::activeModalWidget()) { // it may belong to the dialog that would give way
        constexpr int pause = 200;
        QTimer::singleShot(pause, this, &frmMain::savePictureWanted);
        return;
    }
    m_pathToSave.clear();
    (this->*m_save)();
}

/// The picture on show, as files of it are written. Without a selection.
ImageBox frmMain::boxToSave() {
    dropSelection();
    ImageBox box = m_workspace.ibMain;
    if (m_preview.upright)
        declareUpright(box);
    return box;
}

void frmMain::saveImageDocument() {
    if (m_workspace.ibMain.HasImage())
        m_imageDocument.ShowSaveDialog(boxToSave(), shownDocument());
}

/// The window goes on meanwhile; another picture takes the dialog over.
void frmMain::openSaveAdvanced() {
    if (!m_workspace.ibMain.HasImage())
        return;
    if (m_saveAdvanced)
        m_saveAdvanced->close();
    m_saveAdvanced = new frmSaveAdvanced(
        {boxToSave(), shownDocument(), temporaryFolder(m_options.programFolder)}, ConfigRecord.SaveAdvanced,
        ConfigRecord.BatchSave, m_imageDocument.background(), this);
    deleteWhenClosed(*m_saveAdvanced);
    m_saveAdvanced->show();
}

/// A page is saved next to its document; its own file is hidden from the user.
QString frmMain::shownDocument() const {
    const ListView& pages = m_workspace.lvPages;
    const QString path = m_preview.shownPath();
    for (int row = 0; row < pages.count(); ++row)
        if (pages.row(row).tag == path)
            return shownSource(pages.row(row));
    return path;
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

/// Dialogs that are waited for would hold up the loop that runs on this thread.
void frmMain::offerDialogs(bool offered) {
    m_actions.setEnabled({"cmdEditBar_1", "cmdEditBar_2"}, offered);
    m_previewPane->offerSaving(offered);
    if (m_saveAdvanced)
        m_saveAdvanced->offerSaving(offered);
    if (m_album)
        m_album->setEnabled(offered);
    if (!offered)
        m_pathToSave.clear();
}

/// What a batch works on stays as it is until its end, and nothing covers its Cancel. Controls that this
/// disables lose the focus, which the window system may then hand to any button; it returns at the end,
/// unless the user has moved it.
void frmMain::setRunning(bool running) {
    QWidget* const focused = focusWidget();
    if (running)
        SetStatus({}); // the result of a run before
    m_basketPane->setRunning(running);
    m_browsePane->setRunning(running);
    m_taskPane->setEnabled(!running);
    m_actions.setEnabled({"cmdAddToQueue", "cmdBrowseSettings", "cmdCapture", "cmdTwainAcquire"}, !running);
    offerDialogs(!running);
    if (running)
        m_focusOfRun = {focused, focusWidget()};
    else if (m_focusOfRun.before &&
             (focused == m_focusOfRun.meanwhile || qobject_cast<QAbstractButton*>(focused)))
        m_focusOfRun.before->setFocus();
    if (!running)
        addWaitingPages();
}

/// With the help of that kind of dialog.
bool frmMain::refusesEmptyBasket(const char* dialog) const {
    if (!m_workspace.lvPages.isEmpty())
        return false;
    const DialogSubject subject(dialog);
    service<Dialogs>().messageBox(
        tr("The basket is empty. Add the pictures to save from the folder list first."),
        MessageIcon::Information, MessageButtons::Ok, ApplicationName);
    return true;
}

void frmMain::subSaveAsSinglePage() {
    if (isRunning() || refusesEmptyBasket("frmSaveSinglePage"))
        return;
    const QScopedValueRollback running(m_run, Run::Batch);
    m_endsAtOnce = false;
    const std::vector<RowResult> results =
        tarsel::subSaveAsSinglePage({m_workspace.lvPages, m_workspace.tasks.lvEditBatch, m_workspace.ibTemp,
                                     ConfigRecord.BatchSave, [this](bool isRun) { setRunning(isRun); }},
                                    this);
    if (!results.empty())
        m_hints->done(FirstHints::SaveBasket);
    takeUpright();
    showResults(tr("The batch has ended"), results);
}

void frmMain::showResults(const QString& notice, const std::vector<RowResult>& results,
                          const QString& album) {
    if (results.empty() || !isVisible())
        return;
    QStringList written;
    for (const RowResult& result : results)
        if (result.state == RowState::Written)
            written << result.target;
    m_folderView.showWritten(written);
    SetStatus(resultSummary(results));
    announceRunEnd(*this, notice, resultSummary(results));
    auto* dialog = new frmBatchResults(results, this, album);
    deleteWhenClosed(*dialog);
    dialog->show();
}

/// Those up to the selected one, as the preview shows them.
std::vector<TaskRow> frmMain::shownTasks() const {
    const TaskList& lists = m_workspace.tasks;
    return modProcessTasks::rowsToReplay(lists.lvEdit, lists.lvEditBatch, &lists.lvEditPreview, false,
                                         m_workflow.isOpen());
}

} // namespace tarsel
