// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/forms/frmTwain.h"

#include "acquisition/forms/ScanAreaChoice.h"
#include "acquisition/forms/ScanControls.h"
#include "acquisition/forms/ScanFaultText.h"
#include "acquisition/forms/ScanTarget.h"
#include "acquisition/forms/frmScanOptions.h"
#include "acquisition/forms/ui_frmTwain.h"
#include "base/Dialogs.h"
#include "base/ErrorTrap.h"
#include "base/Translation.h"
#include "collections/forms/ImageBoxView.h"
#include "configuration/ProgramFolder.h"
#include "controls/DeletedDialog.h"
#include "controls/FormScrollArea.h"
#include "controls/LineIcon.h"
#include "controls/LineIconLabel.h"
#include "controls/TabOrder.h"
#include "controls/TypedCharacters.h"
#include "controls/WheelToPanel.h"

#include <QAbstractItemView>
#include <QActionGroup>
#include <QMenu>
#include <QShowEvent>
#include <QSignalBlocker>
#include <algorithm>
#include <utility>

namespace tarsel {

namespace {

using settings::Twain;

QString withSeparator(const QString& folder) {
    const QString trimmed = folder.trimmed();
    return trimmed.endsWith(QLatin1Char('/')) ? trimmed : trimmed + QLatin1Char('/');
}

/// A fresh record names the program folder.
QString shownFolder(const QString& stored) {
    return visibleFolder(stored.trimmed());
}

constexpr FormField<Twain> fields[] = {
    {"optAcquire", &Twain::Acquire},
    {"optFile", &Twain::FileOption},
    {"txtFileName", &Twain::GenericName},
    {"cboSinglepage", &Twain::SinglePageFormat},
    {"cboMultipage", &Twain::MultiPageFormat},
    {"chkOverwrite", &Twain::Overwrite},
    {"txtFolder", &Twain::Folder, StoreMoment::AfterChecks, shownFolder, withSeparator},
};

QString nameOf(const ScanDevice& device) {
    const QString name = QStringLiteral("%1 %2").arg(device.vendor, device.model).trimmed();
    return name.isEmpty() ? device.name : name;
}

/// Scanners of one model, and one that two drivers know, differ by their device, which comes first: the list
/// is narrow.
QString nameAmong(const std::vector<ScanDevice>& devices, const ScanDevice& device) {
    const QString name = nameOf(device);
    const auto hasThisName = [&](const ScanDevice& each) { return nameOf(each) == name; };
    return std::ranges::count_if(devices, hasThisName) == 1
               ? name
               : QStringLiteral("%1 (%2)").arg(device.name, name);
}

void inform(const QString& text) {
    service<Dialogs>().messageBox(text, MessageIcon::Exclamation, MessageButtons::Ok, ApplicationName);
}

} // namespace

frmTwain::frmTwain(Start start, std::unique_ptr<Scanner> scanner, QWidget* owner) :
    QDialog(owner), m_settings(start.settings), m_temporaryFolder(std::move(start.temporaryFolder)),
    m_ui(std::make_unique<Ui::frmTwain>()), m_scanner(std::move(scanner)),
    m_session(*m_scanner, start.memory) {
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    m_ui->setupUi(this);
    letWheelScroll(*m_ui->options);
    fillBoxes();
    addViews();
    buildFitMenu();
    m_controls = new ScanControls(*this);
    letTabReachChosen(*m_ui->optAcquire);
    letTabReachChosen(*m_ui->optFile);
    m_binding = std::make_unique<FormBinding<Twain>>(*this, m_settings, fields);
    connectControls();
    connectSession();
    setFit(true);
    arrangeColumns();
    m_session.look();
}

frmTwain::~frmTwain() = default;

// --- the parts

void frmTwain::fillBoxes() {
    for (const char* format : singlePageFormats())
        m_ui->cboSinglepage->addItem(QLatin1String(format));
    for (const char* format : multiPageFormats())
        m_ui->cboMultipage->addItem(QLatin1String(format));
    dropForbiddenCharacters(m_ui->txtFileName);
    m_ui->cmdRefresh->setIcon(lineIcon(QStringLiteral("refresh")));
    QFont large = m_ui->lblEmpty->font();
    large.setPointSizeF(large.pointSizeF() * 1.4);
    m_ui->lblEmpty->setFont(large);
    constexpr int lines = 4;
    m_ui->layEmpty->insertWidget(
        1, new LineIconLabel(lineIcon(QStringLiteral("scan")), m_ui->pagEmpty, lines), 0, Qt::AlignHCenter);
}

void frmTwain::addViews() {
    m_area = new ScanAreaChoice(*m_ui->cboPaper, *m_ui->lblArea, *m_ui->pagPreview);
    m_ui->layPreview->insertWidget(0, &m_area->view(), 1);
    m_view = new ImageBoxView(ImageBox1, m_ui->pagLast);
    m_view->setObjectName(QStringLiteral("ImageBox1"));
    m_view->setAccessibleName(tr("Last page"));
    m_view->setHint(tr("The pages are shown here as they arrive."));
    m_view->pictureChanged({});
    m_ui->layLast->insertWidget(0, m_view, 1);
    setTabOrder(m_ui->tabPictures, &m_area->view());
    setTabOrder(&m_area->view(), m_view);
    setTabOrder(m_view, m_ui->cmdfit);
}

/// One above the other where the screen is too narrow for both, as it is with a large font.
void frmTwain::arrangeColumns() {
    const QMargins margins = layout()->contentsMargins();
    const int both = m_ui->optionsArea->minimumSizeHint().width() + m_ui->layColumns->spacing() +
                     m_ui->stkPictures->minimumSizeHint().width() + margins.left() + margins.right();
    if (both > roomOnScreen(*this).width())
        m_ui->layColumns->setDirection(QBoxLayout::TopToBottom);
}

void frmTwain::buildFitMenu() {
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("mnuFit"));
    auto* group = new QActionGroup(menu);
    for (const QString& text : {tr("Best Fi&t"), tr("Actual Si&ze")}) {
        QAction* entry = menu->addAction(text);
        entry->setCheckable(true);
        group->addAction(entry);
    }
    connect(group, &QActionGroup::triggered, this,
            [this, menu](const QAction* entry) { setFit(entry == menu->actions().front()); });
    m_ui->cmdfit->setIcon(lineIcon(QStringLiteral("zoom")));
    m_ui->cmdfit->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_ui->cmdfit->setPopup(menu);
    connect(m_view, &ImageBoxView::zoomModeWanted, this, &frmTwain::setFit);
}

void frmTwain::setFit(bool bestFit) {
    const auto entries = findChild<QMenu*>(QStringLiteral("mnuFit"))->actions();
    QAction* const chosen = entries[bestFit ? 0 : 1];
    chosen->setChecked(true);
    m_ui->cmdfit->setText(chosen->text());
    ImageBox1.StretchToFit = bestFit;
    m_view->subFixedSizeTiff(bestFit);
}

void frmTwain::connectControls() {
    connect(m_ui->cmdRefresh, &QToolButton::clicked, &m_session, &ScanSession::look);
    connect(m_ui->cboDevice, &QComboBox::activated, this, [this](int index) {
        const QString device = m_ui->cboDevice->itemData(index).toString();
        const bool isOpen = m_session.state() != ScanSession::State::NoDevice && device == m_session.device();
        if (device.isEmpty() || isOpen)
            return;
        m_area->showPreview({});
        m_session.choose(device);
    });
    const auto set = [this](const std::vector<ScanSetting>& settings) { m_session.set(settings); };
    connect(m_controls, &ScanControls::changed, this, set);
    connect(m_area, &ScanAreaChoice::changed, this, set);
    connect(m_ui->cmdMore, &QPushButton::clicked, this, &frmTwain::openMore);
    connect(m_ui->cmdPreview, &QPushButton::clicked, &m_session, &ScanSession::preview);
    connect(m_ui->cmdCancelScan, &QPushButton::clicked, &m_session, &ScanSession::cancel);
    connect(m_ui->cmdNextPage, &QPushButton::clicked, &m_session, &ScanSession::acquireNext);
    connect(m_ui->cmdFinish, &QPushButton::clicked, &m_session, &ScanSession::finish);
    connect(m_ui->cmdBrowse, &QPushButton::clicked, this, &frmTwain::browseFolder);
    connect(m_ui->cmdAcquire, &QPushButton::clicked, this, &frmTwain::cmdAcquire_Click);
    connect(m_ui->cmdExit, &QPushButton::clicked, this, &QDialog::reject);
}

void frmTwain::connectSession() {
    connect(&m_session, &ScanSession::stateChanged, this, &frmTwain::showState);
    connect(&m_session, &ScanSession::devicesChanged, this, &frmTwain::listDevices);
    connect(&m_session, &ScanSession::optionsChanged, this, &frmTwain::showOptions);
    connect(&m_session, &ScanSession::refused, this,
            [this](const TrappedError& error) { m_ui->lblState->setText(error.description); });
    connect(&m_session, &ScanSession::progressed, this, &frmTwain::showProgress);
    connect(&m_session, &ScanSession::previewArrived, this, &frmTwain::takePreview);
    connect(&m_session, &ScanSession::pageArrived, this, &frmTwain::takePage);
    connect(&m_session, &ScanSession::finished, this, &frmTwain::showEnd);
}

/// The size comes first: the base class looks for a place where all of it is on the screen.
void frmTwain::showEvent(QShowEvent* event) {
    if (!event->spontaneous())
        takeSize();
    QDialog::showEvent(event);
}

void frmTwain::takeSize() {
    m_ui->optionsArea->updateGeometry();
    layout()->activate();
    setMinimumSize(minimumSizeHint().boundedTo(roomOnScreen(*this)));
    const QSize ofPictures(56 * fontMetrics().averageCharWidth(), 0);
    fitToScreen(*this, sizeHint().expandedTo(m_ui->optionsArea->sizeHint() + ofPictures));
}

// --- the scanner

void frmTwain::listDevices() {
    const QSignalBlocker quiet(m_ui->cboDevice);
    m_ui->cboDevice->clear();
    for (const ScanDevice& each : m_session.devices()) {
        m_ui->cboDevice->addItem(nameAmong(m_session.devices(), each), each.name);
        m_ui->cboDevice->setItemData(m_ui->cboDevice->count() - 1, each.name, Qt::ToolTipRole);
    }
    if (m_session.state() == ScanSession::State::Looking)
        m_ui->cboDevice->addItem(tr("Looking for scanners..."));
    else if (m_session.devices().empty())
        m_ui->cboDevice->addItem(tr("No scanner"));
    m_ui->cboDevice->setCurrentIndex(std::max(0, m_ui->cboDevice->findData(m_session.device())));
    QAbstractItemView& names = *m_ui->cboDevice->view();
    names.setMinimumWidth(names.sizeHintForColumn(0));
}

void frmTwain::showOptions() {
    showChoices(m_session.options());
    if (m_more)
        m_more->show(m_session.options());
    m_ui->cmdPreview->setEnabled(m_session.state() == ScanSession::State::Ready && m_session.hasPreview());
}

/// Empty ones where no scanner is open.
void frmTwain::showChoices(const ScanOptions& options) {
    m_controls->show(options);
    m_area->show(options);
    const bool hasArea = !options.wholeArea().isEmpty();
    const bool hasPapers = options.isEmpty() || hasArea;
    m_ui->lblPaper->setEnabled(hasArea);
    m_ui->lblPaper->setVisible(hasPapers);
    m_ui->cboPaper->setVisible(hasPapers);
}

void frmTwain::openMore() {
    if (!m_more) {
        m_more = new frmScanOptions(this);
        deleteWhenClosed(*m_more);
        connect(m_more, &QDialog::finished, this, [this] { m_more = nullptr; });
        connect(m_more, &frmScanOptions::changed, &m_session,
                qOverload<const QString&, const ScanValue&>(&ScanSession::set));
        m_more->show(m_session.options());
    }
    m_more->show();
    m_more->raise();
    m_more->activateWindow();
}

/// What may be used now, and what is on show.
void frmTwain::showState() {
    using enum ScanSession::State;
    const ScanSession::State state = m_session.state();
    const bool isSearching = state == Looking || state == Opening;
    const bool isReady = state == Ready || state == AwaitingPage;
    if (m_session.isAcquiring() && m_ui->options->isEnabled())
        m_focused = focusWidget();
    m_ui->cboDevice->setEnabled(!m_session.devices().empty() && state != AwaitingPage);
    m_ui->cmdRefresh->setEnabled(!isSearching && state != AwaitingPage);
    m_ui->options->setEnabled(!m_session.isAcquiring());
    m_ui->grpDestination->setEnabled(state != AwaitingPage);
    m_ui->cmdMore->setEnabled(isReady);
    m_ui->cmdAcquire->setEnabled(state == Ready || state == NoDevice);
    if (m_more)
        m_more->setEnabled(isReady);
    if (!isReady && !m_session.isAcquiring())
        showChoices({});
    m_ui->cmdPreview->setEnabled(state == Ready && m_session.hasPreview());
    showEmpty();
    showProgressPage();
    moveFocus();
}

/// To what is to be done next; after the scanner's work back to where it was.
void frmTwain::moveFocus() {
    const auto canHave = [](const QWidget* widget) {
        return widget && widget->isVisible() && widget->isEnabled() && widget->focusPolicy() != Qt::NoFocus;
    };
    if (m_session.isAcquiring())
        m_ui->cmdCancelScan->setFocus();
    else if (m_session.state() == ScanSession::State::AwaitingPage)
        m_ui->cmdNextPage->setFocus();
    else if (canHave(m_focused))
        std::exchange(m_focused, nullptr)->setFocus();
    else if (!canHave(focusWidget()) || focusWidget() == m_ui->cmdExit)
        m_ui->cmdAcquire->setFocus();
}

void frmTwain::showProgressPage() {
    using enum ScanSession::State;
    const ScanSession::State state = m_session.state();
    m_ui->cmdNextPage->setDefault(state == AwaitingPage);
    m_ui->cmdAcquire->setDefault(state != AwaitingPage);
    m_ui->stkState->setCurrentWidget(m_session.isAcquiring() ? m_ui->pagScanning
                                     : state == AwaitingPage ? m_ui->pagAnother
                                                             : m_ui->pagIdle);
    m_ui->lblAnother->setText(tr("Page %1 is in the document. Put page %2 on the glass.")
                                  .arg(m_session.nextNumber() - 1)
                                  .arg(m_session.nextNumber()));
    if (!m_session.isAcquiring())
        return;
    m_ui->cmdCancelScan->setEnabled(!m_session.isStopping());
    if (m_session.isStopping())
        m_ui->lblScanning->setText(tr("Stopping the scanner..."));
    else
        showProgress({m_session.nextNumber(), 0, 0, false});
}

/// The pages that are here stay on show while a scanner is looked for.
void frmTwain::showEmpty() {
    using enum ScanSession::State;
    const ScanSession::State state = m_session.state();
    const bool isEmpty =
        state == NoDevice || ((state == Looking || state == Opening) && !ImageBox1.HasImage());
    m_ui->stkPictures->setCurrentWidget(isEmpty ? m_ui->pagEmpty : m_ui->pagPictures);
    if (state == Looking) {
        m_ui->lblEmpty->setText(tr("Looking for scanners..."));
        m_ui->lblEmptyHelp->setText(tr("Scanners in the network can take some seconds to answer."));
    } else if (state == Opening) {
        m_ui->lblEmpty->setText(tr("Opening the scanner..."));
        m_ui->lblEmptyHelp->clear();
    } else if (m_session.devices().empty()) {
        m_ui->lblEmpty->setText(tr("No scanner was found"));
        m_ui->lblEmptyHelp->setText(
            tr("Connect the scanner, switch it on and press Refresh (F5).\n\nIf it is still not found, your "
               "user may not be allowed to use it: members of the group \"scanner\" are. A scanner in the "
               "network must be in the same network as this computer."));
    } else if (m_session.reason()) {
        m_ui->lblEmpty->setText(tr("The scanner can't be used"));
        m_ui->lblEmptyHelp->setText(m_session.reason()->description);
    }
}

// --- pages

void frmTwain::cmdAcquire_Click() {
    std::ignore = trap("FrmTwain.cmdAcquire_Click", [this] {
        TrappingString = QStringLiteral("Acquiring pages from the scanner");
        storeSettings();
        if (m_session.state() == ScanSession::State::NoDevice)
            inform(m_ui->lblEmpty->text() + QStringLiteral(".\n\n") + m_ui->lblEmptyHelp->text());
        else if (m_settings.Acquire == 0)
            startAcquiring();
        else if (m_settings.FileOption == 1 && m_settings.GenericName.trimmed().isEmpty())
            askForName();
        else
            checkTarget();
    });
}

/// A document of the extension alone would be a hidden file.
void frmTwain::askForName() {
    inform(tr("Type a file name for the document."));
    m_ui->txtFileName->setFocus();
}

/// The disk may be one that takes its time.
void frmTwain::checkTarget() {
    const int first = m_settings.FileOption == 1 ? 1 : m_session.nextNumber();
    m_targetQuestion.ask([this, choice = m_settings, first] {
        return [this, target = scanTarget(choice, first)] {
            std::ignore = trap("FrmTwain.cmdAcquire_Click", [&] { acquireInto(target); });
        };
    });
}

void frmTwain::acquireInto(const ScanTarget& target) {
    if (!target.isFolderThere)
        return inform(tr("The folder %1 does not exist. Choose another one.").arg(target.folder));
    if (!target.replaced.isEmpty() && m_settings.Overwrite == 0 &&
        service<Dialogs>().messageBox(replacingText(target), MessageIcon::Question, MessageButtons::YesNo,
                                      ApplicationName) != MessageAnswer::Yes)
        return;
    const bool asks = m_settings.Overwrite == 0;
    startAcquiring(asks ? std::optional(target.replaced) : std::nullopt);
}

/// What has come to the folder since the user was asked is kept.
void frmTwain::startAcquiring(const std::optional<QStringList>& replaceable) {
    m_ui->lblState->clear();
    m_session.acquire(m_settings, m_temporaryFolder, replaceable);
}

void frmTwain::takePreview(const Picture& picture) {
    m_area->showPreview(picture);
    m_ui->tabPictures->setCurrentWidget(m_ui->pagPreview);
}

void frmTwain::takePage(const ScannedPage& page, const AcquiredFile& file) {
    ImageBox1.setPictureHandle(page.picture);
    PreviewPicture shown;
    shown.path = file.path;
    shown.picture = page.picture;
    shown.size = {page.picture.width(), page.picture.height()};
    m_view->pictureChanged(shown);
    m_ui->lblSize->setText(QStringLiteral("%1 X %2").arg(ImageBox1.Width()).arg(ImageBox1.Height()));
    m_ui->tabPictures->setCurrentWidget(m_ui->pagLast);
    if (file.error)
        return;
    if (m_settings.Acquire == 0)
        Q_EMIT acquired(file.path);
    else if (m_settings.FileOption == 0)
        Q_EMIT saved(file.path);
    else
        m_savedDocument = file.path;
}

void frmTwain::showProgress(const ScanProgress& progress) {
    if (m_session.isStopping())
        return;
    const bool isPreview = m_session.state() == ScanSession::State::Previewing;
    m_ui->lblScanning->setText(
        isPreview           ? tr("Scanning for the preview")
        : progress.isSaving ? tr("Saving page %1").arg(progress.number)
        : progress.lines == 0 || progress.allLines > 0
            ? tr("Scanning page %1").arg(progress.number)
            : tr("Scanning page %1: line %2").arg(progress.number).arg(progress.lines));
    if (progress.allLines > 0)
        m_ui->pbScan->start(progress.allLines, progress.lines);
    else
        m_ui->pbScan->setRange(0, 0);
}

/// The message comes when the scanner's signal has been dealt with.
void frmTwain::showEnd(const ScanFaults& faults) {
    if (const QString document = std::exchange(m_savedDocument, {}); !document.isEmpty())
        Q_EMIT saved(document);
    if (!faults.isPreview)
        m_ui->lblState->setText(pagesText(m_session.pagesOfRun() - int(faults.unsaved.size())));
    QMetaObject::invokeMethod(
        this,
        [this, faults, self = QPointer(this)] {
            showFaults(faults, m_session.pagesOfRun());
            if (self && m_result)
                QDialog::done(*std::exchange(m_result, std::nullopt));
        },
        Qt::QueuedConnection);
}

// --- settings

void frmTwain::browseFolder() {
    const auto folder = service<Dialogs>().folderDialog(visibleFolder(m_ui->txtFolder->text()));
    if (folder && !folder->isEmpty())
        m_ui->txtFolder->setText(*folder);
}

void frmTwain::storeSettings() {
    m_binding->store(StoreMoment::AfterChecks);
}

/// In the middle of an acquisition the scanner is stopped first.
void frmTwain::done(int result) {
    storeSettings();
    m_targetQuestion.forget();
    if (m_session.isAcquiring()) {
        m_result = result;
        m_session.cancel();
        return;
    }
    m_session.finish();
    QDialog::done(result);
}

} // namespace tarsel
