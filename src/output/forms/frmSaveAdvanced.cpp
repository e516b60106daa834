// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/forms/frmSaveAdvanced.h"

#include "base/Dialogs.h"
#include "base/ErrorSubject.h"
#include "base/ErrorTrap.h"
#include "base/IgnoringErrors.h"
#include "base/SafeFileWriter.h"
#include "base/SaveFileDialog.h"
#include "controls/FormScrollArea.h"
#include "controls/NumberBox.h"
#include "controls/StatusBar.h"
#include "controls/WheelToPanel.h"
#include "imaging/DisplayColors.h"
#include "imaging/SaveFormats.h"
#include "output/BackgroundSave.h"
#include "output/RoundTripFacts.h"
#include "output/forms/QualityEntry.h"
#include "output/forms/ui_frmSaveAdvanced.h"

#include <QActionGroup>
#include <QCoreApplication>
#include <QFileInfo>
#include <QLocale>
#include <QMenu>
#include <QScreen>
#include <QScrollBar>
#include <QShowEvent>
#include <QSignalBlocker>
#include <algorithm>
#include <cmath>

namespace tarsel {

namespace {

using enum StoreMoment;
using settings::SaveAdvanced;

/// Without the index of the list of colours, which is kept for each format.
constexpr FormField<SaveAdvanced> fields[] = {
    {"cboFormat", &SaveAdvanced::Format, OnChange},
    {"optGIFCompression", &SaveAdvanced::GifCompression, OnChange},
    {"chkGIFTransparent", &SaveAdvanced::GifTransparent, OnChange},
    {"cmdGIFTransparentColor", &SaveAdvanced::GifTransparentColor, OnChange},
    {"sldJPGQuality", &SaveAdvanced::JpgQuality, OnChange},
    {"optJPGEncoding", &SaveAdvanced::JpgEncoding, OnChange},
    {"chkJPGLimit", &SaveAdvanced::JpgLimited, OnChange},
    {"txtJPGMostKB", &SaveAdvanced::JpgMostKilobytes, OnChange},
    {"txtJPGLowestQuality", &SaveAdvanced::JpgLowestQuality, OnChange},
    {"chkJPGMayShrink", &SaveAdvanced::JpgMayShrink, OnChange},
    {"chkPNGTransparent", &SaveAdvanced::PngTransparent, OnChange},
    {"cmdPNGtransprentColor", &SaveAdvanced::PngTransparentColor, OnChange},
    {"cboTIFFCompression", &SaveAdvanced::TiffCompression, OnChange},
};

constexpr char saving[] = "frmSaveAdvanced.cmdSave_Click";
constexpr double twipsInInch = 1440;
constexpr QSize leastTwips(9500, 6000);
constexpr int patience = 300;    ///< milliseconds
constexpr int typingPause = 500; ///< after which a number counts
constexpr int scrollingPause = 60;

RoundTripSource sourceOf(const ImageBox& box) {
    return {box.picture(), box.metadata().blocks()};
}

PreviewPicture shownOriginal(const ImageBox& box) {
    PreviewPicture shown;
    shown.path = box.Tag;
    shown.picture = box.picture();
    shown.size = {box.Width(), box.Height()};
    shown.iccProfile = visibleProfile(box.metadata());
    shown.notice = box.LoadDamage();
    return shown;
}

bool differInQualityOnly(RoundTripSettings one, const RoundTripSettings& other) {
    one.save.JpegQuality = other.save.JpegQuality;
    return one == other;
}

/// While somebody types the number of a size, its first digits alone would be hopelessly small.
bool differInBudgetOnly(RoundTripSettings one, const RoundTripSettings& other) {
    const bool hadBudget = one.budget.bytes > 0 && other.budget.bytes > 0;
    one.budget = other.budget;
    return hadBudget && one == other;
}

/// The fact alone where the error's own text only says that something can't be done.
QString reasonOf(const TrappedError& error) {
    const QString general = errorText(ErrorNumber::InvalidCall) + QStringLiteral(": ");
    return error.description.startsWith(general) ? error.description.mid(general.size()) : error.description;
}

} // namespace

frmSaveAdvanced::frmSaveAdvanced(Start start, settings::SaveAdvanced& settings, settings::BatchSave& batch,
                                 BackgroundSave& background, QWidget* owner) :
    QDialog(owner),
    m_start(std::move(start)), m_settings(settings), m_batch(batch), m_background(background),
    m_ui(std::make_unique<Ui::frmSaveAdvanced>()), m_panes(new OptimizedPanes(this)),
    m_roundTrip(sourceOf(m_start.picture), m_start.temporaryFolder) {
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    m_ui->setupUi(this);
    setWindowTitle(QStringLiteral("%1 - %2").arg(windowTitle(), QFileInfo(m_start.source).fileName()));
    letWheelScroll(*m_ui->options);
    m_ui->layPanes->insertWidget(0, m_panes, 1);
    makeStatusBar();
    buildZoomMenu();
    subSetUp();
    connectOptions();
    for (QPushButton* button : findChildren<QPushButton*>())
        button->setAutoDefault(false); // Return ends the typing of a number
    m_ui->cboFormat->setFocus();
}

frmSaveAdvanced::~frmSaveAdvanced() = default;

// --- the parts

void frmSaveAdvanced::makeStatusBar() {
    const std::vector<StatusPanel> panels = {
        {"zoom", {}, tr("Zoom of the pictures"), "", 0},
        {"resolution", {}, tr("Width and height of the picture"), "", 0},
        {"format", {}, tr("Format of the file"), "", 0},
        {"size", {}, tr("Size of the file that is saved"), "", 0},
        {"status", {}, {}, "", 1, true, Qt::ElideMiddle},
    };
    auto* statusBar = new StatusBar(m_status, panels, this);
    statusBar->setMinimumHeight(fontMetrics().lineSpacing() + 10); // which it asks for only once it is shown
    m_ui->layForm->addWidget(statusBar);
}

void frmSaveAdvanced::buildZoomMenu() {
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("mnuPreview"));
    auto* group = new QActionGroup(menu);
    for (const QString& text : {tr("&Best Fit"), tr("&Actual Size"), tr("Spl&it View")}) {
        QAction* entry = menu->addAction(text);
        entry->setCheckable(true);
        entry->setData(group->actions().size());
        group->addAction(entry);
    }
    connect(group, &QActionGroup::triggered, this,
            [this](const QAction* entry) { setPreviewLayout(PreviewLayout(entry->data().toInt())); });
    m_ui->cmdZoom->setMenu(menu);
}

void frmSaveAdvanced::subSetUp() {
    for (const SaveFormat& format : saveFormats())
        m_ui->cboFormat->addItem(QLatin1String(format.name));
    m_ui->cboTIFFCompression->addItems({tr("None"), tr("Packbits"), tr("CCITT Group 4 Fax")});
    shapeControls();
    m_panes->showOriginal(shownOriginal(m_start.picture));
    m_panes->showOptimized(shownOriginal(m_start.picture));
    m_optimized = m_start.picture;
    setPanel("resolution",
             QStringLiteral("%1 x %2").arg(m_start.picture.Width()).arg(m_start.picture.Height()));
    m_settings.Format = qint16(roundTripSettings(m_settings).format); // of a damaged record too
    m_binding = std::make_unique<FormBinding<SaveAdvanced>>(*this, m_settings, fields);
    joinQualityEntry(*m_ui->sldJPGQuality, *m_ui->txtJPGQuality);
    setPreviewLayout(PreviewLayout(std::min<int>(m_settings.PreviewLayout, int(PreviewLayout::Split))));
}

/// What changes with the options changes no place of another control.
void frmSaveAdvanced::shapeControls() {
    QFont large = m_ui->lblSize->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    large.setBold(true);
    m_ui->lblSize->setFont(large);
    m_ui->lblSize->setMinimumWidth(QFontMetrics(large).horizontalAdvance(QStringLiteral("99999 KB")));
    const int roomForDigits = fontMetrics().horizontalAdvance(QStringLiteral("1000000"));
    for (QLineEdit* field :
         {m_ui->txtJPGQuality, m_ui->txtJPGQualityD, m_ui->txtJPGMostKB, m_ui->txtJPGLowestQuality})
        field->setFixedWidth(roomForDigits);
    QPalette ofText; // which isn't typed there
    ofText.setBrush(QPalette::Base, Qt::transparent);
    m_ui->txtJPGQualityD->setPalette(ofText);
    takeNumbers(m_ui->txtJPGMostKB, {.isBounded = true, .lowest = 1, .highest = 999'999});
    takeNumbers(m_ui->txtJPGLowestQuality, {.isBounded = true, .lowest = 1, .highest = 100});
    m_ui->lblFormat->setMinimumWidth(m_ui->lblColorFormat->sizeHint().width());
    m_ui->lblColorFormat->setMinimumWidth(m_ui->lblFormat->sizeHint().width());
    QSizePolicy ofColors = m_ui->picColorDepth->sizePolicy();
    ofColors.setRetainSizeWhenHidden(true);
    m_ui->picColorDepth->setSizePolicy(ofColors);
    m_ui->lblDetails->setMinimumWidth(34 * fontMetrics().averageCharWidth());
    clearResult();
}

/// A fresh record has the least size.
bool frmSaveAdvanced::hasStoredSize() const {
    return QSize(m_settings.DialogWidth, m_settings.DialogHeight) != leastTwips;
}

/// The stored size is in twips. Where none was stored yet, the contents have the size that they ask for.
void frmSaveAdvanced::restoreSize() {
    const auto length = [](int twips, int dpi) {
        return int(std::clamp(double(twips) * dpi / twipsInInch, 0.0, double(QWIDGETSIZE_MAX)));
    };
    const auto pixels = [&](int across, int down) {
        return QSize(length(across, logicalDpiX()), length(down, logicalDpiY()));
    };
    const QSize least =
        pixels(leastTwips.width(), leastTwips.height()).boundedTo(screen()->availableSize() * 0.9);
    setMinimumSize(least.expandedTo(minimumSizeHint()));
    const QSize stored(m_settings.DialogWidth, m_settings.DialogHeight);
    fitToScreen(*this, hasStoredSize() ? pixels(stored.width(), stored.height()).expandedTo(minimumSize())
                                       : sizeHint());
}

void frmSaveAdvanced::connectOptions() {
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    connect(&m_patience, &QTimer::timeout, this, [this] { setPanel("status", tr("Computing ...")); });
    connect(&m_roundTrip, &LiveRoundTrip::pictureReady, m_panes, &OptimizedPanes::showOptimized);
    connect(&m_roundTrip, &LiveRoundTrip::finished, this, &frmSaveAdvanced::showExact);
    connect(&m_roundTrip, &LiveRoundTrip::measured, this, &frmSaveAdvanced::showDetails);
    connect(&m_roundTrip, &LiveRoundTrip::failed, this, &frmSaveAdvanced::showFailure);
    connect(&m_roundTrip, &LiveRoundTrip::fileNotLeft, this, [this](const QString& reason) {
        setPanel("status", tr("The temporary file was not written: %1").arg(reason));
    });
    connect(&m_background, &BackgroundSave::progressed, this,
            [this](const QString& text) { setPanel("status", text); });
    connect(m_panes, &OptimizedPanes::zoomChanged, this, &frmSaveAdvanced::showZoom);
    connect(m_panes, &OptimizedPanes::optimizedSeen, &m_roundTrip, &LiveRoundTrip::pictureSeen);
    m_scrolling.setSingleShot(true);
    m_scrolling.setInterval(scrollingPause);
    connect(m_panes, &OptimizedPanes::visibleAreaChanged, &m_scrolling, qOverload<>(&QTimer::start));
    connect(&m_scrolling, &QTimer::timeout, this, [this] { m_roundTrip.show(m_panes->visibleArea()); });
    connect(m_panes, &OptimizedPanes::layoutWanted, this, &frmSaveAdvanced::setPreviewLayout);
    connect(m_panes, &OptimizedPanes::pointedAt, this, &frmSaveAdvanced::follow);
    connect(m_panes, &OptimizedPanes::picked, this, &frmSaveAdvanced::takePicked);
    for (QCheckBox* pick : {m_ui->chkGIFPickColor, m_ui->chkPNGpickColor})
        connect(pick, &QCheckBox::toggled, m_panes, &OptimizedPanes::setPicking);
    connect(m_ui->cboFormat, &QComboBox::currentIndexChanged, this, &frmSaveAdvanced::changeFormat);
    connect(m_ui->cboColorFormat, &QComboBox::currentIndexChanged, this, &frmSaveAdvanced::changeColors);
    connect(m_ui->cmdUseForBatch, &QPushButton::clicked, this, &frmSaveAdvanced::useForBatch);
    connect(m_ui->cmdSave, &QPushButton::clicked, this, &frmSaveAdvanced::cmdSave_Click);
    connect(m_ui->cmdExit, &QPushButton::clicked, this, &QDialog::reject);
    changeFormat();
    m_typing.setSingleShot(true);
    m_typing.setInterval(typingPause);
    connect(&m_typing, &QTimer::timeout, this, &frmSaveAdvanced::subOptimize);
    m_binding->onAnyChange([this] { followOption(); });
}

/// Another save from the main window may have changed the quality.
void frmSaveAdvanced::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        m_binding->show();
}

/// The pane must have its size before the part on show is known.
void frmSaveAdvanced::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (event->spontaneous() || m_wanted)
        return;
    restoreSize();
    QTimer::singleShot(0, this, [this] {
        showAllOptions();
        subOptimize();
    });
}

/// Some controls ask for their final size only after they have been shown.
void frmSaveAdvanced::showAllOptions() {
    constexpr int mostRounds = 4; // a new height may give the texts other lines
    for (int round = 0; round < mostRounds && !hasStoredSize(); ++round) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        const int missing = m_ui->optionsArea->verticalScrollBar()->maximum();
        if (missing == 0)
            return;
        fitToScreen(*this, size() + QSize(0, missing));
    }
}

// --- the options

void frmSaveAdvanced::changeFormat() {
    const QString format = extensionOfFormat(m_settings.Format);
    QWidget* frame = format == QLatin1String("gif")   ? m_ui->picFrameGIF
                     : format == QLatin1String("jpg") ? m_ui->picFrameJPG
                     : format == QLatin1String("png") ? m_ui->picFramePNG
                     : format == QLatin1String("tif") ? m_ui->picFrameTiff
                                                      : m_ui->picNoOptions;
    m_ui->stkFrames->setCurrentWidget(frame);
    for (QCheckBox* pick : {m_ui->chkGIFPickColor, m_ui->chkPNGpickColor})
        pick->setChecked(false);
    subColorFormat();
    showQuality();
}

/// Of the JPEG data in the file.
void frmSaveAdvanced::showQuality() {
    const bool has = hasJpegData(roundTripSettings(m_settings));
    m_ui->lblQualityD->setVisible(has);
    m_ui->txtJPGQualityD->setVisible(has);
}

/// The list of colours of the format.
void frmSaveAdvanced::subColorFormat() {
    const QSignalBlocker quiet(m_ui->cboColorFormat);
    const auto colors = saveFormats()[std::size_t(m_settings.Format)].colors;
    m_ui->cboColorFormat->clear();
    for (const ColorEntry& entry : colors)
        m_ui->cboColorFormat->addItem(QCoreApplication::translate("SaveFormats", entry.text));
    m_ui->cboColorFormat->setCurrentIndex(rememberedColors(m_settings, m_settings.Format));
    m_ui->picColorDepth->setVisible(colors.size() > 1);
}

void frmSaveAdvanced::changeColors() {
    rememberColors(m_settings, m_settings.Format, m_ui->cboColorFormat->currentIndex());
    showQuality();
    subOptimize();
}

void frmSaveAdvanced::followOption() {
    if (m_wanted && differInBudgetOnly(*m_wanted, roundTripSettings(m_settings)))
        m_typing.start();
    else
        subOptimize();
}

void frmSaveAdvanced::subOptimize() {
    m_typing.stop();
    const RoundTripSettings wanted = roundTripSettings(m_settings);
    if (m_wanted == wanted || !isVisible())
        return;
    const bool isDragged = m_wanted && differInQualityOnly(*m_wanted, wanted);
    m_wanted = wanted;
    showWaiting();
    m_roundTrip.want(wanted, m_panes->visibleArea(),
                     isDragged ? LiveRoundTrip::Change::Dragged : LiveRoundTrip::Change::AtOnce);
}

// --- what came of them

void frmSaveAdvanced::clearResult() {
    m_ui->lblSize->setText(QStringLiteral("..."));
    m_ui->lblDetails->setPlainText(QStringLiteral("\n\n\n\n")); // the room of the lines to come
}

void frmSaveAdvanced::showWaiting() {
    setPanel("format", extensionOfFormat(m_wanted->format).toUpper());
    setPanel("size", {});
    setPanel("status", {});
    clearResult();
    m_ui->txtJPGQualityD->setText(QString::number(m_wanted->save.JpegQuality));
    m_ui->cmdUseForBatch->setEnabled(m_wanted->budget.bytes == 0); // until the quality that fits is known
    m_patience.start();
}

void frmSaveAdvanced::showExact() {
    const RoundTripResult& result = *m_roundTrip.result();
    m_patience.stop();
    setPanel("status", {});
    if (result.decoded.isNull()) {
        showOriginalInstead();
    } else {
        m_optimized.setPictureHandle(result.decoded);
        EmbeddedMetadata colors;
        colors.iccProfile = result.iccProfile;
        m_optimized.metadata() = MetadataStore(std::move(colors));
    }
    const QString size = sizeInKilobytes(result.bytes.size());
    m_ui->lblSize->setText(size);
    m_ui->txtJPGQualityD->setText(QLocale().toString(roundHalfEven(result.jpegQuality * 10) / 10));
    m_ui->cmdUseForBatch->setEnabled(true);
    showDetails();
    setPanel("size", tr("Optimized size - %1").arg(size));
    m_ui->cmdSave->setEnabled(m_offersSaving);
    savePending();
}

/// Where nothing could be read back, the right pane has the picture that the round began with.
void frmSaveAdvanced::showOriginalInstead() {
    m_optimized = m_start.picture;
    m_panes->showOptimized(shownOriginal(m_start.picture));
}

void frmSaveAdvanced::showDetails() {
    const QStringList facts = roundTripFacts(*m_roundTrip.result(), sourceOf(m_start.picture),
                                             QFileInfo(m_start.picture.Tag).size());
    m_ui->lblDetails->setPlainText(facts.join(QLatin1Char('\n')));
}

void frmSaveAdvanced::showFailure(const TrappedError& error) {
    m_patience.stop();
    showOriginalInstead();
    const QString reason = namingPath(QFileInfo(m_start.source).fileName(), reasonOf(error));
    if (!std::exchange(m_target, QString()).isEmpty())
        std::ignore = trap(saving, [&] { throw error; });
    m_ui->lblSize->setText(QStringLiteral("-"));
    m_ui->lblDetails->setPlainText(reason);
    setPanel("status", reason);
    m_ui->cmdSave->setEnabled(false);
    m_ui->options->setEnabled(true);
}

void frmSaveAdvanced::showZoom() {
    setPanel("zoom", QStringLiteral("%1%").arg(roundHalfEven(m_panes->zoom())));
}

void frmSaveAdvanced::setPreviewLayout(PreviewLayout layout) {
    m_settings.PreviewLayout = quint8(layout);
    QAction* entry = m_ui->cmdZoom->menu()->actions().at(int(layout));
    entry->setChecked(true);
    m_ui->cmdZoom->setText(entry->text() + QStringLiteral("   "));
    m_panes->setLayoutTo(layout);
}

// --- picking a colour

ColorWell& frmSaveAdvanced::swatchInUse() const {
    return m_ui->stkFrames->currentWidget() == m_ui->picFramePNG ? *m_ui->cmdPNGtransprentColor
                                                                 : *m_ui->cmdGIFTransparentColor;
}

/// What is see-through already has no colour of its own: that of the original counts there.
void frmSaveAdvanced::follow(QPoint pixel) {
    if (pixel.x() < 0 || pixel.y() < 0 || pixel.x() >= m_optimized.Width() ||
        pixel.y() >= m_optimized.Height())
        return;
    const ConstPixelView optimized = m_optimized.picture().view();
    const bool isSeenThrough = optimized.channels == 4 && optimized.pixel(pixel.x(), pixel.y())[3] == 0;
    const ImageBox& seen = isSeenThrough ? m_start.picture : m_optimized;
    m_pointed = seen.PixelColor(pixel.x(), pixel.y());
    swatchInUse().showOther(m_pointed);
}

void frmSaveAdvanced::takePicked() {
    ColorWell& swatch = swatchInUse();
    swatch.showOther(std::nullopt);
    if (m_pointed)
        swatch.setValue(*std::exchange(m_pointed, std::nullopt));
    for (QCheckBox* pick : {m_ui->chkGIFPickColor, m_ui->chkPNGpickColor})
        pick->setChecked(false);
}

// --- saving and leaving

void frmSaveAdvanced::useForBatch() {
    const RoundTripSettings settings = roundTripSettings(m_settings);
    const SaveSettings& save = settings.save;
    const bool isLimited = settings.budget.bytes > 0;
    if (isLimited && !m_roundTrip.result())
        return;
    m_batch.JpegQuality =
        qint16(isLimited ? std::max(1.0, std::floor(m_roundTrip.result()->jpegQuality)) : save.JpegQuality);
    m_batch.JpegProgressive = save.JpegEncoding ? 1 : 0;
    m_batch.JpegDepth = save.ColorFormat == 0 ? 0 : 1;
    setPanel("status", isLimited ? tr("The batch will use the quality of this file, without the limit")
                                 : tr("The batch will use these settings"));
}

void frmSaveAdvanced::offerSaving(bool offered) {
    m_offersSaving = offered;
    m_ui->cmdSave->setEnabled(offered && (isExact() || m_roundTrip.isBusy()));
}

/// The extension is always added. A file that is still being made is saved as soon as it is there.
void frmSaveAdvanced::cmdSave_Click() {
    subSaveSettings();
    subOptimize(); // with a number that was just typed
    std::ignore = trap(saving, [&] {
        TrappingString = QStringLiteral("Saving the optimized picture");
        const SaveFormat& format = saveFormats()[std::size_t(m_settings.Format)];
        const auto written = [&](int, const QString& path) {
            return path + QLatin1Char('.') + QLatin1String(format.extension);
        };
        const auto choice = saveFileDialogFor(
            {tr("Save Optimized image"), QCoreApplication::translate("SaveFormats", format.filter),
             unusedNameBeside(m_start.source)},
            written, [this](const QString& target) { return lossByReplacing(m_start.source, target); });
        if (!choice || choice->path.isEmpty())
            return;
        const QString target = written(choice->filterIndex, choice->path);
        QString reason = replacingRefusal(m_start.source, target, m_start.picture.LoadDamage());
        if (reason.isEmpty() && !isExact() && !m_roundTrip.isBusy()) // it failed while the dialog was open
            reason = m_ui->lblDetails->toPlainText();
        if (!reason.isEmpty()) {
            service<Dialogs>().messageBox(reason, MessageIcon::Exclamation, MessageButtons::Ok,
                                          ApplicationName);
            return;
        }
        m_target = target;
        savePending();
    });
}

void frmSaveAdvanced::savePending() {
    const bool waits = !m_target.isEmpty() && !isExact();
    m_ui->options->setEnabled(!waits); // which would change what is saved
    if (m_target.isEmpty() || waits)
        return;
    const QString target = std::exchange(m_target, QString());
    m_background.start(target, saving,
                       [target, bytes = m_roundTrip.result()->bytes] { writeFileSafely(target, bytes); });
}

void frmSaveAdvanced::subSaveSettings() {
    const auto twips = [](int pixels, int dotsInInch) {
        return qint32(roundHalfEven(pixels * twipsInInch / dotsInInch));
    };
    m_binding->store(OnChange);
    // A dialog that was cut to the screen, by a large font perhaps, is to have room for its parts elsewhere.
    const auto uncut = [](int length, int room, int wanted) {
        return length < room ? length : std::max(length, wanted);
    };
    const QSize room = roomOnScreen(*this);
    m_settings.DialogWidth = twips(uncut(width(), room.width(), sizeHint().width()), logicalDpiX());
    m_settings.DialogHeight = twips(uncut(height(), room.height(), sizeHint().height()), logicalDpiY());
}

void frmSaveAdvanced::done(int result) {
    subSaveSettings();
    if (const QString target = std::exchange(m_target, QString()); !target.isEmpty())
        m_background.start(target, saving,
                           [target, source = sourceOf(m_start.picture), settings = *m_wanted] {
                               writeFileSafely(target, roundTrip(source, settings).bytes);
                           });
    QDialog::done(result);
}

} // namespace tarsel
