// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/forms/frmSaveSinglePage.h"

#include "base/Conversions.h"
#include "base/Dialogs.h"
#include "base/ErrorTrap.h"
#include "base/Translation.h"
#include "configuration/ProgramFolder.h"
#include "controls/TypedCharacters.h"
#include "output/Naming.h"
#include "output/forms/NamePreview.h"
#include "output/forms/ui_frmSaveSinglePage.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QKeyEvent>

namespace tarsel {

namespace {

/// A drive's root, "C:\", stays as it is; any other folder gets a separator, also one that ends in a
/// separator already.
QString withEndingSeparator(const QString& folder) {
    const QString trimmed = folder.trimmed();
    const bool isDriveRoot = trimmed.size() == 3 && trimmed[1] == QLatin1Char(':');
    return isDriveRoot ? folder : folder + QLatin1Char('/');
}

/// Without the separators that earlier saves added, so that a save doesn't add one more.
QString withoutEndingSeparator(const QString& folder) {
    QString shown = folder.trimmed();
    while (shown.size() > 1 && shown.endsWith(QLatin1Char('/')))
        shown.chop(1);
    return shown;
}

/// A fresh record names the program folder.
QString shownDestination(const QString& stored) {
    const QString visible = visibleFolder(stored.trimmed());
    return visible == stored.trimmed() ? withoutEndingSeparator(stored) : visible;
}

/// Of a box that is narrower than its entries: its list shows each of them complete.
void widenList(QComboBox& box) {
    QAbstractItemView* list = box.view();
    const int scrollBar = list->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, list);
    list->setMinimumWidth(list->sizeHintForColumn(0) + 2 * list->frameWidth() + scrollBar);
}

using enum StoreMoment;

using settings::BatchSave;

constexpr FormField<BatchSave> fields[] = {
    {"OptName", &BatchSave::NameOption, OnChange},
    {"optDestinationFolder", &BatchSave::DestinationOption, OnChange},
    {"cboRenameSuffix", &BatchSave::RenameSuffix, BeforeChecks},
    {"cboRenamePrefix", &BatchSave::RenamePrefix, BeforeChecks},
    {"cboSeparator1", &BatchSave::Separator1, BeforeChecks},
    {"cboSeparator2", &BatchSave::Separator2, BeforeChecks},
    {"txtRenameGeneric", &BatchSave::RenameGeneric, BeforeChecks},
    {"cboRenameGeneric", &BatchSave::RenameGenericPattern, BeforeChecks},
    {"chkOverwrite", &BatchSave::Overwrite, BeforeChecks},
    {"sldJPGQuality", &BatchSave::JpegQuality, BeforeChecks},
    {"chkJPGProgressive", &BatchSave::JpegProgressive, BeforeChecks},
    {"optJPEGDepth", &BatchSave::JpegDepth, BeforeChecks},
    {"txtDestinationFolder", &BatchSave::DestinationFolder, AfterChecks, shownDestination,
     withEndingSeparator},
    {"txtImportEXIF", &BatchSave::ImportEXIFFile, AfterChecks},
    {"txtImportIPTC", &BatchSave::ImportIPTCFile, AfterChecks},
    {"chkImportEXIF", &BatchSave::ImportEXIF, AfterChecks},
    {"chkImportIPTC", &BatchSave::ImportIPTC, AfterChecks},
    {"chkProcessEditingList", &BatchSave::ProcessEditingList, AfterChecks},
    {"chkUpright", &BatchSave::UprightByExif, AfterChecks},
    {"chkStripPrivate", &BatchSave::StripPrivate, AfterChecks},
};

} // namespace

frmSaveSinglePage::frmSaveSinglePage(settings::BatchSave& settings, const ListView& lvPages,
                                     const ListView& lvEditBatch, QWidget* owner) :
    QDialog(owner),
    m_settings(settings), m_tasks(lvEditBatch), m_ui(std::make_unique<Ui::frmSaveSinglePage>()),
    m_preview(new NamePreview(lvPages, lvEditBatch, this)) {
    m_ui->setupUi(this);
    m_ui->layNames->addWidget(m_preview);
    m_preview->setTabOrderBetween(m_ui->cmdImportIPTC, m_ui->cmdStarConversion);
    fillBoxes();
    subSetUp();
    connectButtons();
    showTasks();
    m_preview->show(m_binding->shown());
    m_ui->sldJPGQuality->setFocus();
    takeSize();
}

frmSaveSinglePage::~frmSaveSinglePage() = default;

// --- the controls

void frmSaveSinglePage::fillBoxes() {
    for (QComboBox* box : {m_ui->cboRenamePrefix, m_ui->cboRenameSuffix})
        box->addItems(namingTokens());
    for (QComboBox* box : {m_ui->cboSeparator1, m_ui->cboSeparator2})
        box->addItems(namingSeparators());
    m_ui->cboRenameGeneric->addItems(namingCounts());
    for (QComboBox* box : m_ui->grpFileName->findChildren<QComboBox*>()) {
        // Typed text stays as it is: no completion to one of the entries.
        box->setCompleter(nullptr);
        widenList(*box);
        if (box != m_ui->cboRenameGeneric)
            dropForbiddenCharacters(box->lineEdit());
    }
    takeDigitsOnly(m_ui->cboRenameGeneric->lineEdit());
    m_ui->lblJPGQuality->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("1000")));
}

void frmSaveSinglePage::subSetUp() {
    m_binding = std::make_unique<FormBinding<settings::BatchSave>>(*this, m_settings, fields);
    const auto showQuality = [this](int quality) { m_ui->lblJPGQuality->setNum(quality); };
    connect(m_ui->sldJPGQuality, &QSlider::valueChanged, this, showQuality);
    showQuality(m_ui->sldJPGQuality->value());
    m_previewDelay.setSingleShot(true);
    m_previewDelay.setInterval(200);
    connect(&m_previewDelay, &QTimer::timeout, this, [this] { m_preview->show(m_binding->shown()); });
    m_binding->onAnyChange([this] { m_previewDelay.start(); });
}

void frmSaveSinglePage::connectButtons() {
    connect(m_ui->cmdStarConversion, &QPushButton::clicked, this,
            &frmSaveSinglePage::cmdStarConversion_Click);
    connect(m_ui->cmdExit, &QPushButton::clicked, this, &frmSaveSinglePage::cmdExit_Click);
    connect(m_ui->cmdDestinationFolder, &QPushButton::clicked, this, &frmSaveSinglePage::browseFolder);
    connect(m_ui->cmdImportEXIF, &QPushButton::clicked, this, [this] {
        browseImport(m_ui->txtImportEXIF, tr("Open EXIF .xiff file"), tr("EXIF file (*.xiff)|*.xiff"));
    });
    connect(m_ui->cmdImportIPTC, &QPushButton::clicked, this, [this] {
        browseImport(m_ui->txtImportIPTC, tr("Open IPTC .ffo file"), tr("IPTC file (*.ffo)|*.ffo"));
    });
    connect(m_ui->chkProcessEditingList, &QCheckBox::toggled, this, &frmSaveSinglePage::showTasks);
    // What is wrong with the folder is written below the names.
    connect(m_preview, &NamePreview::destinationUsableChanged, m_ui->cmdStarConversion,
            &QPushButton::setEnabled);
}

/// Whether the task basket has a part in the run.
void frmSaveSinglePage::showTasks() {
    const int count = m_tasks.count();
    const auto counted = [count](const char* one, const char* many) {
        return countedText("frmSaveSinglePage", one, many, count);
    };
    QString text;
    if (count == 0)
        text = tr("The task basket is empty.");
    else if (m_ui->chkProcessEditingList->isChecked())
        text = counted("1 task will run.", QT_TRANSLATE_N_NOOP("frmSaveSinglePage", "%n tasks will run."));
    else
        text = counted("The task won't run: the option above is not ticked.",
                       QT_TRANSLATE_N_NOOP("frmSaveSinglePage",
                                           "The %n tasks won't run: the option above is not ticked."));
    m_ui->lblTasks->setText(text);
}

/// Before it is shown the size is nearly right, and the base class looks for a place where all of it is on
/// the screen. Some controls ask for their final size only afterwards; and the window manager's answer to the
/// first size may come after the second.
void frmSaveSinglePage::showEvent(QShowEvent* event) {
    if (!event->spontaneous())
        takeSize();
    QDialog::showEvent(event);
    constexpr int answered = 150; // ms
    for (const int wait : {0, answered})
        if (!event->spontaneous())
            QTimer::singleShot(wait, this, [this] {
                QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
                takeSize();
            });
}

/// Where the dialog is too narrow for both, the names move below the options.
void frmSaveSinglePage::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    const int options = m_ui->optionsArea->minimumSizeHint().width();
    const bool folded = width() < options + 32 * fontMetrics().averageCharWidth();
    m_ui->layColumns->setDirection(folded ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    m_ui->layColumns->setStretch(0, folded ? 1 : 0);
}

/// The options set the least width; the names get theirs where the screen has room.
void frmSaveSinglePage::takeSize() {
    const QMargins margins = layout()->contentsMargins();
    const int options = m_ui->optionsArea->minimumSizeHint().width();
    setMinimumSize(options + margins.left() + margins.right(), 16 * fontMetrics().height());
    fitToScreen(*this, {options + 100 * fontMetrics().averageCharWidth(), sizeHint().height()});
}

void frmSaveSinglePage::browseFolder() {
    const auto folder = service<Dialogs>().folderDialog(m_ui->txtDestinationFolder->text());
    if (folder && !folder->isEmpty())
        m_ui->txtDestinationFolder->setText(*folder);
}

void frmSaveSinglePage::browseImport(QLineEdit* path, const QString& title, const QString& filter) {
    const auto choice = service<Dialogs>().openFileDialog({title, filter, path->text()});
    if (choice && !choice->path.isEmpty())
        path->setText(choice->path);
}

// --- leaving

void frmSaveSinglePage::cmdStarConversion_Click() {
    if (m_previewDelay.isActive()) {
        m_previewDelay.stop();
        m_preview->show(m_binding->shown());
    }
    if (!m_preview->isDestinationUsable())
        return;
    // First, and kept through a refusal: closing the window after one lets the run go ahead.
    m_settings.Confirmed = -1;
    m_binding->store(BeforeChecks);
    if (!countIsAccepted())
        return;
    m_binding->store(AfterChecks);
    accept();
}

void frmSaveSinglePage::cmdExit_Click() {
    m_settings.Confirmed = 0;
    reject();
}

/// Escape leaves as the Exit button does; the close box, which comes by reject too, changes no answer.
void frmSaveSinglePage::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        cmdExit_Click();
    else
        QDialog::keyPressEvent(event);
}

bool frmSaveSinglePage::countIsAccepted() {
    const auto refuse = [](const QString& text) {
        service<Dialogs>().messageBox(text, MessageIcon::Information, MessageButtons::Ok, ApplicationName);
        return false;
    };
    const QString count = m_ui->cboRenameGeneric->currentText().trimmed();
    if (count.isEmpty())
        return refuse(tr("The count variable cannot be empty!"));
    if (!namingCounts().contains(count) && !isNumeric(count))
        return refuse(tr("Count should be numeric!"));
    return true;
}

} // namespace tarsel
