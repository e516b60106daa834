// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/forms/ScanSession.h"
#include "acquisition/forms/ScreenCapture.h"
#include "collections/Basket.h"
#include "collections/FileQuestion.h"
#include "collections/FolderView.h"
#include "collections/Preview.h"
#include "collections/Workspace.h"
#include "controls/ActionTable.h"
#include "metadata/forms/MetadataEditor.h"
#include "output/forms/ImageDocument.h"
#include "output/forms/Printing.h"
#include "tasks/TaskWorkflow.h"

#include <QMainWindow>
#include <QPointer>
#include <functional>
#include <memory>
#include <vector>

namespace tarsel {

struct AlbumOptions;
class BasketPane;
class BeforeView;
class BrowsePane;
class FolderPane;
class frmAlbum;
class frmTwain;
class GreetingMaker;
class HelpDesk;
class InstanceLock;
class ListControl;
class MetadataPane;
class NoticeBar;
struct Place;
class PreviewPane;
class ProgressBar;
class FirstHints;
class frmSaveAdvanced;
struct RowResult;
class TaskPane;
class Splitter;
class StatusBar;

/// The main window: creates the shared lists and boxes, passes them to the panes and connects their
/// signals.
///
/// Its life: the constructor makes the panes, Form_Load sets everything up, the first showing lists the last
/// folder, closing stores the settings.
class frmMain final : public QMainWindow {
    Q_OBJECT
public:
    /// Where the window finds its files, and what it calls at its start.
    struct StartupOptions {
        QString programFolder;                        ///< exists and is writable
        QString samplesFolder;                        ///< listed at the first start; may be empty
        std::function<void()> seedRandomNumbers = {}; ///< starts the random numbers
        QString thumbnailFolder = {}; ///< that the programs of this desktop share; empty for none
        QString remark = {};          ///< on the start so far, for the user to read
        QString manualFolder = {};    ///< holds the pages of the manual; empty for none
    };

    explicit frmMain(StartupOptions options);
    ~frmMain() override;
    frmMain(const frmMain&) = delete;
    frmMain& operator=(const frmMain&) = delete;

    /// False when another instance runs: the user was informed, nothing was touched, and the program is to
    /// end.
    bool Form_Load();

    Workspace& workspace() { return m_workspace; }
    const FolderView& folderView() const { return m_folderView; }
    Preview& preview() { return m_preview; }

    /// Shows the picture or folder, or opens the basket or the task list, that the program was started with:
    /// a path or an address.
    void openFile(const QString& argument);
    bool isWriting() const; ///< a file of the user
    void takeUpright();     ///< shows the picture as the batch's option says

    void SetStatus(const QString& text);
    /// Writes the settings for a session that is about to end, which closes the window without a question.
    void prepareSessionEnd();
    /// Closes the window without a question.
    void endAtOnce();

Q_SIGNALS:
    /// The window has ended and everything is stored.
    void ended();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    // Initialise: the window's parts
    void arrangePanes();
    void addProgress(StatusBar& statusBar);
    void connectFolderPane();
    void connectBasketPane();
    void connectTaskBasket();
    void connectPreview();
    void connectMetadata();
    void connectEditing();
    void connectBefore();
    void connectPrinting();
    void connectPaneKeys();
    void connectCapture();
    void connectTwain();
    void connectHints();
    void offerTaskHint();
    void offerSaveHint();
    void connectHelp();

    // Form_Load
    bool refuseSecondInstance();
    void subSetup();
    void loadSettings();
    void resetState();
    void setDrawingDefaults();
    void buildApplicationName();
    void takeThumbnailSizes();
    void chooseThumbnailSize(QSize size);
    void takeScreen();
    void followScreen();
    void fillMetadataCatalogue();
    void clearStatusPanel();
    void showEmptyBasket();
    void subUpdateForm();
    void applyTips();

    /// What takes the window's lists for a while, from its dialog on.
    enum class Run { None, Batch, Printing, Album, Saver, Greeting };
    bool isRunning() const { return m_run != Run::None; }

    // the course of the run
    void showFirstTime();
    void listFolder(const QString& folder);
    void addSelectionToBasket();
    void dropRows(const ListControl* source, int row);
    void changeBasket(void (Basket::*change)());
    void showOfferedFile(const QList<QUrl>& files);
    void showPlace(const Place& place);
    void showNeighbour(int step);
    void cmdBrowseSettings_Click();
    void showHistory();
    void offerAcquired();
    static QString acquiredNotice();
    void undo();
    void reopenLastBasket();
    /// The batch save, from its dialog to the list of results.
    void subSaveAsSinglePage();
    void print(void (Printing::*command)());
    void cmdCapture_Click();
    void subAddCapturedItem(const Picture& picture);
    void takeCaptured(const ImageBox& box, const QString& path, bool isSaved);
    bool showCaptured(const QString& path);
    void cmdTwainAcquire_Click();
    void subAddItemFromTwain(const QString& path);
    void addWaitingPages();
    void offerUnsavedCaptures();
    void openAlbum();
    void generateAlbum(const AlbumOptions& options);
    void connectPublishing();
    void openSaver();
    void generateSaver();
    void openGreeting();
    void makeGreeting(const settings::PublishingSettings& shown);
    std::vector<RowResult> publish(Run run, const std::function<std::vector<RowResult>()>& make);
    std::vector<TaskRow> shownTasks() const;
    bool refusesEmptyBasket(const char* dialog) const;
    void showResults(const QString& notice, const std::vector<RowResult>& results, const QString& album = {});
    void setRunning(bool running);
    void saveRowAs(int row);
    void savePictureWanted();
    void saveShown(const QString& path, void (frmMain::*save)());
    void saveImageDocument();
    void openSaveAdvanced();
    ImageBox boxToSave();
    void dropSelection();
    void describeSelection();
    void showEditing();
    void showTaskPanel(bool open);
    void showBefore();
    bool openOfferedTasks(const QList<QUrl>& files);
    bool openOfferedBasket(const QList<QUrl>& files);
    void whenAnswered(const QString& path, const std::function<void()>& open);
    QString shownDocument() const;
    void offerDialogs(bool offered);
    void showZoom();
    void updateZoom();

    // Form_Unload
    bool asksAboutEnd() const;
    void closeAfterWriting();
    void confirmEnd();
    QString stopQuestion() const;
    bool confirmStop();
    void confirmUnsaved();
    bool tasksMayGo();
    bool correctionMayGo();
    void subEnd();
    void storePositions();
    void forEachColumnWidth(const std::function<void(ListControl&, int, qint16&)>& visit);
    void Form_Unload();

    StartupOptions m_options;
    Workspace m_workspace;
    ProgressBar* pbQueue;
    FolderView m_folderView;
    Basket m_basket;
    Preview m_preview;
    ImageDocument m_imageDocument;
    Printing m_printing;
    ScreenCapture m_capture;
    bool m_capturesPointer = false;                              ///< as chosen last in this run
    std::vector<std::pair<ImageBox, QString>> m_unsavedCaptures; ///< with file names; until they are offered
    std::unique_ptr<InstanceLock> m_instance;
    QPointer<frmAlbum> m_album; ///< while it is open
    QPointer<frmTwain> m_twain; ///< while it is open
    ScanMemory m_scanMemory;
    QStringList m_waitingPages; ///< of scanner and screen, for the basket
    bool m_addsPages = false;   ///< those that wait, at this moment
    FileQuestion m_acquiredQuestion;
    FileQuestion m_offeredQuestion;
    bool m_offersAcquired = false; ///< pictures of earlier sessions, by an undo in the empty basket
    std::unique_ptr<GreetingMaker> m_greetings;
    HelpDesk* m_help = nullptr;

    ActionTable m_actions;
    BrowsePane* m_browsePane;
    FolderPane* m_folderPane;
    BasketPane* m_basketPane;
    PreviewPane* m_previewPane;
    BeforeView* m_beforeView = nullptr;
    MetadataPane* m_metadataPane;
    TaskPane* m_taskPane;
    NoticeBar* m_notices;
    FirstHints* m_hints;
    MetadataEditor m_metadataEditor;
    TaskWorkflow m_workflow;
    Splitter* splMain = nullptr;
    Splitter* splRight = nullptr;
    Splitter* splLeft = nullptr;
    Splitter* splView = nullptr;

    bool FirstShowing = true;
    Run m_run = Run::None;
    struct {
        QPointer<QWidget> before, meanwhile;
    } m_focusOfRun;
    bool m_loaded = false;
    bool m_endsAtOnce = false; ///< without asking about a batch that runs
    bool m_asksAboutEnd = false;
    bool m_closesAfterWriting = false; ///< a file, which may yet fail
    ListControl* ActiveList;           ///< entered last; next and previous walk it
    QString LastBasketFolder;
    QString m_pathToSave;                ///< its save dialog opens as soon as the preview shows it
    void (frmMain::*m_save)() = nullptr; ///< opens that dialog
    QPointer<frmSaveAdvanced> m_saveAdvanced;
    QString m_selectionText; ///< as the status line showed it last; so the next one
    QString m_zoomText;      ///< as the status line showed it last
    Size m_basketThumb;      ///< working copy of the basket's thumbnail size
    Size m_folderThumb;
};

} // namespace tarsel
