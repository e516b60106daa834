// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/forms/frmAlbum.h"

#include "base/Dialogs.h"
#include "base/ErrorTrap.h"
#include "base/SaveFileDialog.h"
#include "configuration/ProgramFolder.h"
#include "controls/DeletedDialog.h"
#include "controls/FormScrollArea.h"
#include "controls/LineIcon.h"
#include "publishing/AlbumArtwork.h"
#include "publishing/AlbumFields.h"
#include "publishing/MetadataBasket.h"
#include "publishing/MetadataLines.h"
#include "publishing/forms/frmInsertMetadata.h"
#include "publishing/forms/ui_frmAlbum.h"

#include <QFileInfo>
#include <QFontDatabase>
#include <QPixmap>
#include <QRegularExpression>
#include <QShowEvent>
#include <QTimer>

namespace tarsel {

namespace {

using settings::Album;

/// A fresh record names the program folder.
QString shownFolder(const QString& stored) {
    return visibleFolder(stored.trimmed());
}

std::vector<FormField<Album>> makeFormFields() {
    std::vector<FormField<Album>> fields;
    for (const AlbumField& each : albumFields) {
        std::visit(
            [&](auto field) {
                fields.push_back({each.control, RecordField<Album>(field)});
            },
            each.field);
        if (each.field == AlbumFieldOf(&Album::AlbumFolder))
            fields.back().shown = shownFolder;
    }
    return fields;
}

const std::vector<FormField<Album>>& formFields() {
    static const std::vector<FormField<Album>> fields = makeFormFields();
    return fields;
}

/// The half of a background over which its gradient runs.
QIcon backgroundIcon(const QString& image, QSize size) {
    QPixmap tile;
    tile.loadFromData(albumArtwork::resource(QStringLiteral("BACKGROUND"), image));
    return tile.copy(0, 0, tile.width(), tile.height() / 2)
        .scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

/// Pages name the family alone, without the foundry that Qt adds where two have a family of that name.
QStringList fontFamilies() {
    QStringList families = QFontDatabase::families();
    families.replaceInStrings(QRegularExpression(QStringLiteral(" \\[[^\\]]*\\]$")), QString());
    families.removeDuplicates();
    return families;
}

QString basketFilter() {
    return frmAlbum::tr("Metadata basket file (*.mbf)|*.mbf");
}

void inform(const QString& text) {
    service<Dialogs>().messageBox(text, MessageIcon::Information, MessageButtons::Ok, ApplicationName);
}

} // namespace

frmAlbum::frmAlbum(settings::Album& settings, QWidget* owner) :
    QDialog(owner), m_settings(settings), m_ui(std::make_unique<Ui::frmAlbum>()) {
    m_ui->setupUi(this);
    subLoadAlbumOptions();
    joinNumbers();
    showImages();
    connectButtons();
}

frmAlbum::~frmAlbum() = default;

/// Some controls ask for their final size only after they have been shown. Before that the size is nearly
/// right, and the base class looks for a place where all of it is on the screen.
void frmAlbum::showEvent(QShowEvent* event) {
    if (!event->spontaneous())
        fitToScreen(*this, sizeHint());
    QDialog::showEvent(event);
    if (!event->spontaneous())
        QTimer::singleShot(0, this, [this] { fitToScreen(*this, sizeHint()); });
}

// --- the options

void frmAlbum::subLoadAlbumOptions() {
    for (int size = 1; size <= 5; ++size)
        m_ui->cboFontSize->addItem(QString::number(size));
    m_ui->cboFonts->addItems(fontFamilies());
    m_ui->lblJPGQuality->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("1000")));
    m_binding = std::make_unique<FormBinding<Album>>(*this, m_settings, formFields());
    m_ui->lblJPGQuality->setNum(m_ui->sldQuality->value());
    if (m_ui->cboFonts->currentIndex() < 0) // the fonts of the last time have gone
        m_ui->cboFonts->setCurrentIndex(0);
    constexpr std::pair<QPushButton * Ui::frmAlbum::*, const char*> icons[] = {
        {&Ui::frmAlbum::cmdNew, "new"},
        {&Ui::frmAlbum::cmdOpen, "open"},
        {&Ui::frmAlbum::cmdSave, "save"},
        {&Ui::frmAlbum::cmdRemove, "remove"},
    };
    for (const auto& [button, icon] : icons)
        ((*m_ui).*button)->setIcon(lineIcon(QLatin1String(icon)));
}

AlbumOptions frmAlbum::subStoreAlbumOptions() {
    m_binding->store(StoreMoment::AfterChecks);
    applyLimits(m_settings); // a number may still have been in typing
    return {m_settings, m_ui->cboFonts->currentText(), lines()};
}

void frmAlbum::joinNumbers() {
    constexpr int thumbnailFallback = 80, otherFallback = 8;
    for (UpDown* arrows : findChildren<UpDown*>()) {
        const QString name = arrows->objectName().chopped(1); // without its "D"
        const AlbumField& field = albumField(name.toStdString());
        const bool isThumbnail = field.highest > otherFallback;
        joinNumber(*findChild<QLineEdit*>(name), *arrows, field.lowest, field.highest,
                   isThumbnail ? thumbnailFallback : otherFallback);
    }
}

void frmAlbum::showImages() {
    const auto show = [this](const char* group, int index, const QString& image) {
        auto* button =
            findChild<QAbstractButton*>(QStringLiteral("%1_%2").arg(QLatin1String(group)).arg(index));
        button->setIcon(backgroundIcon(image, button->iconSize()));
    };
    for (int i = 0; i < int(std::size(albumArtwork::containerImages)); ++i)
        show("optContainerImage", i, albumArtwork::containerImage(i));
    for (int i = 0; i < int(std::size(albumArtwork::pageImages)); ++i)
        show("optPageImage", i, albumArtwork::pageImage(i));
}

void frmAlbum::showBackgrounds() {
    m_ui->picContainerBackgroundImage->setVisible(m_ui->optContainerBackground_0->isChecked());
    m_ui->picContainerBackgroundColor->setVisible(m_ui->optContainerBackground_2->isChecked());
    m_ui->picPageColor->setVisible(m_ui->optPageStyle_1->isChecked());
    m_ui->picPageImage->setVisible(!m_ui->optPageStyle_1->isChecked());
}

/// Options of one template only, and originals only where they show nothing that is to be left out.
void frmAlbum::showTemplate() {
    const bool isModern = m_ui->optTemplate_1->isChecked();
    m_ui->chkOriginals->setEnabled(isModern && !m_ui->chkStripPrivate->isChecked());
    m_ui->tabsAlbum->setTabEnabled(m_ui->tabsAlbum->indexOf(m_ui->areaLook), !isModern);
    const std::initializer_list<QWidget*> classic{
        m_ui->TThumbnailWidth,   m_ui->TThumbnailWidthD, m_ui->TthumbnailHeight,
        m_ui->TthumbnailHeightD, m_ui->TPicturesPerRow,  m_ui->TPicturesPerRowD,
        m_ui->chkResample,       m_ui->grpFont,          m_ui->cmdMetadataFontColor};
    for (QWidget* each : classic)
        each->setEnabled(!isModern);
}

void frmAlbum::connectButtons() {
    connect(m_ui->optTemplate, &QButtonGroup::idToggled, this, &frmAlbum::showTemplate);
    connect(m_ui->chkStripPrivate, &QCheckBox::toggled, this, &frmAlbum::showTemplate);
    showTemplate();
    for (const QButtonGroup* group : {m_ui->optContainerBackground, m_ui->optPageStyle})
        connect(group, &QButtonGroup::idToggled, this, &frmAlbum::showBackgrounds);
    showBackgrounds();
    connect(m_ui->cmdFolder, &QPushButton::clicked, this, &frmAlbum::browseFolder);
    connect(m_ui->cmdNew, &QPushButton::clicked, m_ui->lstMetadata, &QListWidget::clear);
    connect(m_ui->cmdOpen, &QPushButton::clicked, this, &frmAlbum::openLines);
    connect(m_ui->cmdSave, &QPushButton::clicked, this, &frmAlbum::saveLines);
    connect(m_ui->cmdRemove, &QPushButton::clicked, this, &frmAlbum::removeLine);
    connect(m_ui->cmdChooseMetadata, &QPushButton::clicked, this, &frmAlbum::chooseLines);
    connect(m_ui->cmdGenerate, &QPushButton::clicked, this, &frmAlbum::cmdGenerate_Click);
}

void frmAlbum::cmdGenerate_Click() {
    const QFileInfo folder(m_ui->txtFolder->text());
    if (folder.isDir() && !folder.isWritable())
        return inform(tr("You may not write to the folder %1.").arg(folder.filePath()));
    hide();
    Q_EMIT generate(subStoreAlbumOptions());
    accept();
}

void frmAlbum::browseFolder() {
    const auto folder = service<Dialogs>().folderDialog(visibleFolder(m_ui->txtFolder->text()));
    if (folder && !folder->isEmpty())
        m_ui->txtFolder->setText(*folder);
}

// --- the lines of metadata

QStringList frmAlbum::lines() const {
    QStringList lines;
    for (int i = 0; i < m_ui->lstMetadata->count(); ++i)
        lines << m_ui->lstMetadata->item(i)->data(Qt::UserRole).toString();
    return lines;
}

void frmAlbum::setLines(const QStringList& lines) {
    m_ui->lstMetadata->clear();
    for (const QString& line : lines)
        addLine(line);
}

void frmAlbum::addLine(const QString& line) {
    auto* item = new QListWidgetItem(metadataLineInWords(line), m_ui->lstMetadata);
    item->setData(Qt::UserRole, line);
}

void frmAlbum::chooseLines() {
    auto* dialog = new frmInsertMetadata(this);
    deleteWhenClosed(*dialog);
    connect(dialog, &QDialog::accepted, this, [this, dialog] {
        for (const QString& line : dialog->chosen())
            if (!lines().contains(line))
                addLine(line);
    });
    dialog->open();
}

void frmAlbum::removeLine() {
    delete m_ui->lstMetadata->currentItem();
}

void frmAlbum::openLines() {
    const auto choice = service<Dialogs>().openFileDialog({tr("Open Metadata list"), basketFilter(), {}});
    if (!choice)
        return;
    QStringList read;
    const bool opened = modSaveOpenImageList::fncOpenMetadataBasket(choice->path, read);
    setLines(read);
    if (!opened)
        inform(tr("Error opening metadata basket list!\nPlease select a valid file."));
}

void frmAlbum::saveLines() {
    if (lines().isEmpty())
        return;
    auto path = savePathFor({tr("Save Metadata Basket"), basketFilter(), {}},
                            modSaveOpenImageList::metadataBasketExtension);
    if (path && !modSaveOpenImageList::fncSaveMetadataBasket(*path, lines()))
        inform(tr("Error saving metadata basket!\nPlease try again!"));
}

} // namespace tarsel
