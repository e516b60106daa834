// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/forms/frmTwain.h"
#include "app/FirstHints.h"
#include "app/InstanceLock.h"
#include "app/TaskPane.h"
#include "app/WindowPlace.h"
#include "app/frmMain.h"
#include "base/DialogSubject.h"
#include "base/Dialogs.h"
#include "base/ErrorTrap.h"
#include "base/IgnoringErrors.h"
#include "base/ProgramIdentity.h"
#include "base/Translation.h"
#include "collections/LastBasket.h"
#include "collections/PageFiles.h"
#include "collections/Thumbnail.h"
#include "collections/TypedPath.h"
#include "collections/forms/BasketPane.h"
#include "collections/forms/BrowsePane.h"
#include "collections/forms/FolderPane.h"
#include "collections/forms/FolderTree.h"
#include "collections/forms/ImageBoxView.h"
#include "collections/forms/PreviewPane.h"
#include "configuration/ColumnWidths.h"
#include "configuration/ConfigFile.h"
#include "configuration/ProgramFolder.h"
#include "controls/ListControl.h"
#include "controls/NoticeBar.h"
#include "controls/ProgressBar.h"
#include "controls/Splitter.h"
#include "controls/frmStatus.h"
#include "metadata/forms/MetadataPane.h"
#include "metadata/modMetadata.h"
#include "output/forms/frmSaveAdvanced.h"
#include "pixels/Color.h"
#include "tasks/TaskBasketActions.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QScopedValueRollback>
#include <QSet>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <utility>

// The window's start and end, in the order of their steps.

namespace tarsel {

namespace {

QSize qtSize(Size size) {
    return {size.width, size.height};
}

} // namespace

// --- Form_Load

bool frmMain::Form_Load() {
    std::ignore = trap("FrmMain.Form_Load", [this] {
        TrappingString = QStringLiteral("Loading all controls and settings");
        if (refuseSecondInstance())
            return;
        // From here on the run goes ahead: a step that fails is reported and leaves its part as it was.
        m_loaded = true;
        if (m_options.seedRandomNumbers)
            m_options.seedRandomNumbers();
        subSetup();
    });
    return m_loaded;
}

/// Before everything else: the configuration belongs to the instance that runs.
bool frmMain::refuseSecondInstance() {
    m_instance = std::make_unique<InstanceLock>(m_options.programFolder);
    if (m_instance->take())
        return false;
    service<Dialogs>().messageBox(
        tr("There is already an instance of %1 running!\nMultiple instance is unsupported.")
            .arg(programIdentity::title),
        MessageIcon::Stop, MessageButtons::Ok, ApplicationName);
    return true;
}

void frmMain::subSetup() {
    using Step = void (frmMain::*)();
    static constexpr Step steps[] = {
        &frmMain::loadSettings,         &frmMain::resetState,         &frmMain::setDrawingDefaults,
        &frmMain::buildApplicationName, &frmMain::takeThumbnailSizes, &frmMain::fillMetadataCatalogue,
        &frmMain::clearStatusPanel,     &frmMain::showEmptyBasket,
    };
    std::ignore = trap("FrmMain.subSetup", [this] {
        TrappingString = QStringLiteral("Setting up Main Application");
        for (const Step step : steps)
            (this->*step)();
    });
}

/// Reads the configuration and brings it to the controls.
void frmMain::loadSettings() {
    const QStringList remarks = QStringList(m_options.remark) + loadConfiguration(m_options.programFolder);
    for (const QString& remark : remarks)
        m_notices->say(remark);
    restoreWindowPlace(*this, windowPlaceFile(m_options.programFolder));
    splMain->setSplitterPosition(ConfigRecord.SplitterMain);
    splRight->setSplitterPosition(ConfigRecord.SplitterRight);
    splLeft->setSplitterPosition(ConfigRecord.SplitterLeft);
    splView->setSplitterPosition(ConfigRecord.SplitterView);
    m_previewPane->setPreviewType(ConfigRecord.PreviewType);
    m_preview.OptimizedPreview = ConfigRecord.PreviewType != 0;
    m_previewPane->setPreviewFit(ConfigRecord.PreviewFit);
    m_taskPane->setLive(ConfigRecord.LivePreview == 1);
    forEachColumnWidth(
        [](ListControl& list, int column, qint16& width) { list.setColumnWidth(column, width); });
    m_folderView.settings.folderView = ConfigRecord.FolderView;
    m_folderPane->setForm(ConfigRecord.FolderView);
    LastBasketFolder = ConfigRecord.LastBasketFolder;
    subUpdateForm();
}

/// Walks the column widths that the record remembers.
void frmMain::forEachColumnWidth(const std::function<void(ListControl&, int, qint16&)>& visit) {
    const auto walk = [&](ListControl& list, const std::vector<qint16*>& widths) {
        for (int column = 0; column < int(widths.size()); ++column)
            visit(list, column, *widths[size_t(column)]);
    };
    walk(m_folderPane->lvFolder(), folderColumnWidths(ConfigRecord));
    walk(m_basketPane->lvPages(), basketColumnWidths(ConfigRecord));
    walk(m_metadataPane->lvExif(), exifColumnWidths(ConfigRecord));
    walk(m_metadataPane->lvIPTC(), iptcColumnWidths(ConfigRecord));
}

void frmMain::resetState() {
    m_metadataPane->showTab(0);
    FirstShowing = true;
    m_folderView.FolderChanging = false;
    deleteAllPageFilesSetAside(m_options.programFolder);
    tidyAcquiredFiles(m_options.programFolder);
}

void frmMain::setDrawingDefaults() {
    m_workspace.ibMain.SelectionActive = true;
    m_workspace.ibMain.BackColorTransparent = true;
    const QColor button = palette().color(QPalette::Button);
    setButtonColor({std::uint8_t(button.red()), std::uint8_t(button.green()), std::uint8_t(button.blue())});
}

void frmMain::buildApplicationName() {
    ApplicationName = programIdentity::title + QLatin1Char(' ') + programIdentity::comment;
    setWindowTitle(programIdentity::title);
}

void frmMain::takeThumbnailSizes() {
    m_folderThumb = {ConfigRecord.FolderThumbWidth, ConfigRecord.FolderThumbHeight};
    m_folderView.setThumbnailSize(usableThumbnailSize(m_folderThumb));
}

void frmMain::fillMetadataCatalogue() {
    modMetadata::InitMetadataTables();
}

void frmMain::clearStatusPanel() {
    SetStatus({});
}

void frmMain::showEmptyBasket() {
    m_workspace.sbMain.setPanel(QStringLiteral("queue"), tr("No files in basket"));
}

void frmMain::subUpdateForm() {
    std::ignore = trap("FrmMain.subUpdateForm", [this] {
        TrappingString = QStringLiteral("Updating settings to controls");
        m_basketThumb = {ConfigRecord.BasketThumbWidth, ConfigRecord.BasketThumbHeight};
        takeThumbnailSizes();
        takeScreen();
        m_preview.upright = ConfigRecord.BatchSave.UprightByExif == 1;
        for (CollectionSettings* settings : {&m_folderView.settings, &m_basket.settings}) {
            settings->programFolder = m_options.programFolder;
            settings->basketThumb = usableThumbnailSize(m_basketThumb);
            settings->upright = ConfigRecord.BatchSave.UprightByExif == 1;
            settings->longFileSize = ConfigRecord.LongFileSize == 1;
        }
        m_basketPane->lvPages().setTableIconSize(qtSize(m_basket.settings.basketThumb));
        m_folderPane->lvFolder().setFullRowSelect(ConfigRecord.FolderFullRowSelect == -1);
        m_basketPane->lvPages().setFullRowSelect(ConfigRecord.BasketFullRowSelect == -1);
        applyTips();
    });
}

/// Thumbnails are made for the pixels of the window's screen.
void frmMain::takeScreen() {
    m_folderView.settings.pixelRatio = m_basket.settings.pixelRatio = devicePixelRatioF();
}

/// The window has come to another screen.
void frmMain::followScreen() {
    const double ratio = m_folderView.settings.pixelRatio;
    takeScreen();
    if (m_folderView.settings.pixelRatio == ratio)
        return;
    m_folderView.makeThumbnailsAgain();
    m_basket.makeThumbnailsAgain();
}

void frmMain::applyTips() {
    const std::pair<QWidget*, QString> tips[] = {
        {&m_browsePane->ftvBrowse(), tr("Browse for a particular folder where image files are placed.")},
        {&m_folderPane->lvFolder(), tr("List all supported image formats from the selected folder.")},
        {&m_metadataPane->lvExif(), tr("List all available EXIF attributes from JPEG/TIFF files.")},
        {&m_metadataPane->lvIPTC(), tr("List all available EXIF attributes from JPEG/TIFF files.")},
        {&m_basketPane->lvPages(), tr("List all added files or pages in the basket")},
        {&m_previewPane->ibMain(), tr("Container for the preview file.")},
    };
    for (const auto& [widget, text] : tips)
        widget->setToolTip(ConfigRecord.ShowTips == 1 ? text : QString());
}

// --- the first showing

void frmMain::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (!std::exchange(FirstShowing, false))
        return;
    m_folderPane->lvFolder().setFocus(); // whose pictures are the first thing to work on
    connect(windowHandle(), &QWindow::screenChanged, this, &frmMain::followScreen, Qt::QueuedConnection);
    QTimer::singleShot(0, this, &frmMain::showFirstTime);
}

QString frmMain::acquiredNotice() {
    return tr(
        "Pages or pictures that were acquired in an earlier session are in no basket. Ctrl+Z in the empty "
        "basket brings them back.");
}

/// Those of a session that was killed, or that another basket took the place of.
void frmMain::offerAcquired() {
    m_acquiredQuestion.ask([this, folder = m_options.programFolder] {
        return [this, isLacking = !lastBasket::acquiredBeside(folder).isEmpty()] {
            if (!isLacking || !m_workspace.lvPages.isEmpty())
                return;
            m_offersAcquired = true;
            m_notices->sayFirst(acquiredNotice()); // a hint can wait
            showHistory();
        };
    });
}

/// Before the first step the end of the last session can be undone, which emptied the basket.
void frmMain::undo() {
    if (m_basket.history().undoable())
        return changeBasket(&Basket::undo);
    reopenLastBasket();
}

void frmMain::reopenLastBasket() {
    CollectionLists shared = m_workspace.lists(*pbQueue);
    const auto missing = [this] {
        QSet<QString> files;
        for (const AwaitedEntry& entry : m_basket.awaited())
            files << entry.path;
        return int(files.size());
    };
    QString damaged;
    if (!lastBasket::reopen(m_basket, shared, m_options.programFolder, &damaged))
        SetStatus(tr("The basket of the last session could not be read"));
    else if (!m_basket.awaited().empty() && !m_basket.wasStopped())
        SetStatus(countedText(
            "frmMain", "1 file of the last basket was not found; it comes back when it is there again",
            QT_TRANSLATE_N_NOOP("frmMain", "%n files of the last basket were not found; they "
                                           "come back when they are there again"),
            missing()));
    if (!damaged.isEmpty())
        m_notices->sayFirst(tr("The basket of the last session is damaged. It was kept as %1.").arg(damaged));
    showHistory();
}

/// Selects the last folder, which lists it. Somebody who has never chosen one sees the sample pictures, or
/// else a folder of their own.
void frmMain::showFirstTime() {
    QString folder = ConfigRecord.LastFolder.trimmed();
    if (folder.isEmpty() || folder == m_options.programFolder)
        folder = m_options.samplesFolder.isEmpty() ? visibleFolder(m_options.programFolder)
                                                   : m_options.samplesFolder;
    m_browsePane->question().ask([this, folder] {
        return [this, nearest = nearestFolder(folder)] { m_browsePane->ftvBrowse().selectFolder(nearest); };
    });
    // The file that a first start makes is empty, which the next start would read as zeros after a crash.
    if (QFileInfo(ConfigPath).size() == 0) {
        m_hints->beginFirstRun();
        subSaveSetup();
    }
    offerAcquired();
    if (folder == m_options.samplesFolder)
        m_hints->offer(FirstHints::OwnPictures);
}

/// The next hint comes when the work of the one before is done.
void frmMain::connectHints() {
    connect(&m_workspace.lvPages, &QAbstractItemModel::rowsInserted, this, [this] {
        m_hints->done(FirstHints::OwnPictures);
        offerTaskHint();
        offerSaveHint();
    });
    connect(&m_preview, &Preview::pictureChanged, this, &frmMain::offerTaskHint);
    connect(&m_workspace.tasks.lvEdit, &QAbstractItemModel::rowsInserted, this, [this] {
        m_hints->done(FirstHints::ChooseTask);
        offerSaveHint();
    });
}

/// Without a picture on show no task can be chosen.
void frmMain::offerTaskHint() {
    if (!m_workspace.lvPages.isEmpty() && m_workspace.ibMain.HasImage())
        m_hints->offer(FirstHints::ChooseTask);
}

void frmMain::offerSaveHint() {
    if (!m_workspace.lvPages.isEmpty() && !m_workspace.tasks.lvEdit.isEmpty())
        m_hints->offer(FirstHints::SaveBasket);
}

// --- Form_Unload

/// The session may yet go on; then the next batch is asked about again.
void frmMain::prepareSessionEnd() {
    m_endsAtOnce = true;
    subEnd();
}

void frmMain::endAtOnce() {
    m_endsAtOnce = true;
    close();
}

bool frmMain::asksAboutEnd() const {
    return isRunning() || m_workflow.isUnfinished() || m_workspace.tasks.isUnsaved() ||
           m_workflow.isCorrected();
}

/// Questions come in an event of their own: a session that ends meanwhile can then close the window all the
/// same.
void frmMain::closeEvent(QCloseEvent* event) {
    if (!m_endsAtOnce && m_loaded && asksAboutEnd()) {
        event->ignore();
        QMetaObject::invokeMethod(this, &frmMain::confirmEnd, Qt::QueuedConnection);
        return;
    }
    if (isWriting() && !m_endsAtOnce) {
        event->ignore();
        closeAfterWriting();
        return;
    }
    QMainWindow::closeEvent(event);
    if (std::exchange(m_loaded, false))
        Form_Unload();
}

bool frmMain::isWriting() const {
    return m_metadataEditor.isWriting() || m_imageDocument.background().isSaving() ||
           (m_twain && m_twain->isAcquiring());
}

/// A failure is shown then, and keeps the window.
void frmMain::closeAfterWriting() {
    if (m_twain)
        m_twain->close(); // which stops the scanner first
    m_closesAfterWriting = true;
    SetStatus(tr("The window closes when the file is written"));
}

void frmMain::confirmEnd() {
    if (m_asksAboutEnd)
        return;
    const QScopedValueRollback asking(m_asksAboutEnd, true);
    if (!isRunning() || confirmStop())
        m_workflow.end(
            [this] { QMetaObject::invokeMethod(this, &frmMain::confirmUnsaved, Qt::QueuedConnection); });
}

QString frmMain::stopQuestion() const {
    switch (m_run) {
    case Run::Printing:
        return tr("Pictures are being printed. Do you want to stop that and exit?");
    case Run::Album:
        return tr(
            "A web album is being made. Do you want to stop that and exit?\nFiles that are finished stay.");
    case Run::Saver:
        return tr("A screen saver or slide show is being made. Do you want to stop that and exit?");
    case Run::Greeting:
        return tr("A greeting is being made. Do you want to stop that and exit?");
    case Run::Batch:
    case Run::None:
        break;
    }
    return tr("A batch is running. Do you want to stop it and exit?\nFiles that are finished stay.");
}

bool frmMain::confirmStop() {
    const DialogSubject subject("frmStatus");
    if (service<Dialogs>().messageBox(stopQuestion(), MessageIcon::Question, MessageButtons::YesNo,
                                      ApplicationName) == MessageAnswer::Yes)
        return true;
    if (auto* status = findChild<frmStatus*>(); status && status->isVisible())
        status->activateWindow(); // its keys go on working
    return false;
}

void frmMain::confirmUnsaved() {
    if (m_asksAboutEnd || !m_loaded)
        return;
    const QScopedValueRollback asking(m_asksAboutEnd, true);
    if (tasksMayGo() && correctionMayGo()) {
        m_endsAtOnce = true; // no further question
        isWriting() ? closeAfterWriting() : endAtOnce();
    }
}

bool frmMain::tasksMayGo() {
    TaskList& tasks = m_workspace.tasks;
    if (!tasks.isUnsaved())
        return true;
    const DialogSubject subject("picEditBar");
    const MessageAnswer answer = service<Dialogs>().messageBox(
        tr("The tasks of the task basket are not saved.\nDo you want to save them before the program ends?"),
        MessageIcon::Question, MessageButtons::SaveDiscardCancel, ApplicationName);
    constexpr int save = 2;
    if (answer == MessageAnswer::Save)
        taskBasketActions::cmdEditBar(save, tasks, m_workflow.isOpen());
    return answer == MessageAnswer::Discard || (answer == MessageAnswer::Save && !tasks.isUnsaved());
}

/// What no list of tasks holds.
bool frmMain::correctionMayGo() {
    return !m_workflow.isCorrected() ||
           service<Dialogs>().messageBox(tr("The picture with its corrected eyes is not saved.\nDo you want "
                                            "to exit without saving it?"),
                                         MessageIcon::Question, MessageButtons::YesNo,
                                         ApplicationName) == MessageAnswer::Yes;
}

void frmMain::Form_Unload() {
    // Loops that this event interrupted end at their next item.
    CancelRequested = true;
    m_basket.stopAdding();
    m_folderView.stop();
    m_browsePane->question().forget();
    m_acquiredQuestion.forget();
    m_offeredQuestion.forget();
    m_preview.stop();
    if (m_saveAdvanced)
        m_saveAdvanced->close(); // which stores its settings
    if (!isWriting())            // else a page may be listed just now
        tidyAcquiredFiles(m_options.programFolder);
    subEnd();
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window != this && window->isWindow() && window->isVisible())
            window->close();
    deleteFilesWithoutExtension(m_options.programFolder);
    m_instance.reset();
    Q_EMIT ended();
}

void frmMain::subEnd() {
    std::ignore = trap("FrmMain.subEnd", [this] {
        TrappingString = QStringLiteral("Saving Settings before termination");
        storePositions();
        forEachColumnWidth([](ListControl& list, int column, qint16& width) {
            width = qint16(std::clamp(list.columnWidth(column), 0, 32767));
        });
        // An answer to a save dialog holds for this run only.
        ConfigRecord.BatchSave.Confirmed = 0;
        subSaveSetup();
        storeWindowPlace(*this, windowPlaceFile(m_options.programFolder));
        m_basketPane->lvPages().endEditing();
        ignoringErrors(
            [this] { lastBasket::keep(m_workspace.lvPages, m_basket.awaited(), m_options.programFolder); });
    });
}

void frmMain::storePositions() {
    ConfigRecord.SplitterMain = qint16(splMain->SplitterPosition());
    ConfigRecord.SplitterRight = qint16(splRight->SplitterPosition());
    ConfigRecord.SplitterLeft = qint16(splLeft->SplitterPosition());
    ConfigRecord.SplitterView = qint16(splView->SplitterPosition());
    ConfigRecord.PreviewType = quint8(m_previewPane->previewType());
    ConfigRecord.PreviewFit = quint8(m_previewPane->previewFit());
    ConfigRecord.LivePreview = m_taskPane->isLive() ? 1 : 0;
    const QString folder = m_browsePane->ftvBrowse().selectedFolder();
    if (!folder.isEmpty())
        ConfigRecord.LastFolder = folder;
    ConfigRecord.FolderThumbWidth = qint16(m_folderThumb.width);
    ConfigRecord.FolderThumbHeight = qint16(m_folderThumb.height);
    storeBasketThumbnailSize(m_basketThumb.width, m_basketThumb.height);
    ConfigRecord.LastBasketFolder = LastBasketFolder;
}

} // namespace tarsel
