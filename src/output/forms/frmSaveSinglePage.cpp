// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/forms/frmSaveSinglePage.h"

#include "base/Conversions.h"
#include "base/Desktop.h"
#include "base/ErrorTrap.h"
#include "output/Naming.h"
#include "output/forms/NamePreview.h"
#include "output/forms/TypedCharacters.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>

namespace tarsel {

frmSaveSinglePage::frmSaveSinglePage(BatchSave& settings, const ListView& lvPages,
                                     const ListView& lvEditBatch, QWidget* owner) :
    QDialog(owner),
    m_settings(settings), m_preview(new NamePreview(lvPages, lvEditBatch, this)) {
    setObjectName(QStringLiteral("frmSaveSinglePage"));
    setWindowTitle(QStringLiteral("Save single-page files"));
    arrange();
    subSetUp();
    connectChanges();
    enableControls();
    previewNames();
}

// --- the controls

void frmSaveSinglePage::arrange() {
    auto* options = new QVBoxLayout;
    options->addWidget(makePictureGroup());
    options->addWidget(makeDestinationGroup());
    options->addWidget(makeNameGroup());
    options->addWidget(makeImportGroup());
    options->addStretch(1);

    auto* names = new QGroupBox(QStringLiteral("Resulting names"), this);
    auto* namesBox = new QVBoxLayout(names);
    namesBox->addWidget(m_preview);

    auto* columns = new QHBoxLayout;
    columns->setSpacing(12);
    columns->addLayout(options);
    columns->addWidget(names, 1);

    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(14, 14, 14, 14);
    rows->setSpacing(12);
    rows->addLayout(columns, 1);
    rows->addLayout(makeButtons());
    resize(1040, sizeHint().height());
    sldJPGQuality->setFocus();
}

QButtonGroup* frmSaveSinglePage::makeOptions(const char* name, const QStringList& texts) {
    auto* group = new QButtonGroup(this);
    for (int i = 0; i < texts.size(); ++i) {
        auto* option = new QRadioButton(texts[i], this);
        option->setObjectName(QStringLiteral("%1_%2").arg(QLatin1String(name)).arg(i));
        group->addButton(option, i);
    }
    return group;
}

QComboBox* frmSaveSinglePage::makeTextBox(const char* name, const char* meaning, const QStringList& entries) {
    auto* box = new QComboBox(this);
    box->setObjectName(QLatin1String(name));
    box->setAccessibleName(QLatin1String(meaning));
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    // What is typed stays as typed: no completion into one of the entries.
    box->setCompleter(nullptr);
    box->addItems(entries);
    box->setMinimumContentsLength(12);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    return box;
}

QWidget* frmSaveSinglePage::makePictureGroup() {
    auto* group = new QGroupBox(QStringLiteral("Picture"), this);
    auto* rows = new QVBoxLayout(group);

    sldJPGQuality = new QSlider(Qt::Horizontal, group);
    sldJPGQuality->setObjectName(QStringLiteral("sldJPGQuality"));
    sldJPGQuality->setAccessibleName(QStringLiteral("JPEG quality"));
    sldJPGQuality->setRange(1, 100);
    sldJPGQuality->setPageStep(10);
    lblJPGQuality = new QLabel(group);
    lblJPGQuality->setObjectName(QStringLiteral("lblJPGQuality"));
    lblJPGQuality->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("1000")));
    auto* quality = new QHBoxLayout;
    quality->addWidget(new QLabel(QStringLiteral("Quality"), group));
    quality->addWidget(sldJPGQuality, 1);
    quality->addWidget(lblJPGQuality);
    rows->addLayout(quality);

    auto* depth = new QHBoxLayout;
    optJPEGDepth =
        makeOptions("optJPEGDepth", {QStringLiteral("24 bit True Color"), QStringLiteral("8 bit Grayscale")});
    for (QAbstractButton* button : optJPEGDepth->buttons())
        depth->addWidget(button);
    depth->addStretch(1);
    rows->addLayout(depth);

    chkJPGProgressive = new QCheckBox(QStringLiteral("&Progressive"), group);
    chkJPGProgressive->setObjectName(QStringLiteral("chkJPGProgressive"));
    rows->addWidget(chkJPGProgressive);
    chkProcessEditingList =
        new QCheckBox(QStringLiteral("Run the &tasks of the task basket on every picture"), group);
    chkProcessEditingList->setObjectName(QStringLiteral("chkProcessEditingList"));
    rows->addWidget(chkProcessEditingList);
    return group;
}

QWidget* frmSaveSinglePage::makeDestinationGroup() {
    auto* group = new QGroupBox(QStringLiteral("Destination"), this);
    auto* rows = new QVBoxLayout(group);
    optDestinationFolder = makeOptions("optDestinationFolder",
                                       {QStringLiteral("Place the output files to the source folder"),
                                        QStringLiteral("Place the output files to the following folder")});
    for (QAbstractButton* button : optDestinationFolder->buttons())
        rows->addWidget(button);
    txtDestinationFolder = new QLineEdit(group);
    txtDestinationFolder->setObjectName(QStringLiteral("txtDestinationFolder"));
    txtDestinationFolder->setAccessibleName(QStringLiteral("Destination folder"));
    cmdDestinationFolder = new QPushButton(QStringLiteral("&Browse..."), group);
    cmdDestinationFolder->setObjectName(QStringLiteral("cmdDestinationFolder"));
    connect(cmdDestinationFolder, &QPushButton::clicked, this, &frmSaveSinglePage::browseFolder);
    auto* folder = new QHBoxLayout;
    folder->addWidget(txtDestinationFolder, 1);
    folder->addWidget(cmdDestinationFolder);
    rows->addLayout(folder);
    chkOverwrite = new QCheckBox(QStringLiteral("&Overwrite existing files"), group);
    chkOverwrite->setObjectName(QStringLiteral("chkOverwrite"));
    rows->addWidget(chkOverwrite);
    return group;
}

QWidget* frmSaveSinglePage::makeNameGroup() {
    auto* group = new QGroupBox(QStringLiteral("File name"), this);
    auto* grid = new QGridLayout(group);
    OptName = makeOptions("OptName", {QStringLiteral("Retain the original filename (extension will differ)"),
                                      QStringLiteral("Hybrid"), QStringLiteral("Generic ")});
    grid->addWidget(OptName->button(0), 0, 0, 1, 4);
    grid->addWidget(OptName->button(1), 1, 0, 1, 4);
    grid->addWidget(OptName->button(2), 4, 0, 1, 4);

    cboRenamePrefix = makeTextBox("cboRenamePrefix", "Prefix", namingTokens());
    cboSeparator1 = makeTextBox("cboSeparator1", "Separator between prefix and name", namingSeparators());
    cboSeparator2 = makeTextBox("cboSeparator2", "Separator between name and suffix", namingSeparators());
    cboRenameSuffix = makeTextBox("cboRenameSuffix", "Suffix", namingTokens());
    for (QComboBox* box : {cboRenamePrefix, cboSeparator1, cboSeparator2, cboRenameSuffix})
        dropForbiddenCharacters(box->lineEdit());
    txtRenameGeneric = new QLineEdit(group);
    txtRenameGeneric->setObjectName(QStringLiteral("txtRenameGeneric"));
    txtRenameGeneric->setAccessibleName(QStringLiteral("Generic name"));
    cboRenameGeneric = makeTextBox("cboRenameGeneric", "Count", namingCounts());
    takeDigitsOnly(cboRenameGeneric->lineEdit());

    const auto place = [&](const char* caption, QWidget* widget, int row, int column) {
        auto* label = new QLabel(QLatin1String(caption), group);
        label->setIndent(column == 0 ? 20 : 0);
        label->setBuddy(widget);
        grid->addWidget(label, row, column);
        grid->addWidget(widget, row, column + 1);
    };
    place("Prefix", cboRenamePrefix, 2, 0);
    place("Separator", cboSeparator1, 2, 2);
    place("Suffix", cboRenameSuffix, 3, 0);
    place("Separator", cboSeparator2, 3, 2);
    place("Name", txtRenameGeneric, 5, 0);
    place("Count", cboRenameGeneric, 5, 2);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    return group;
}

frmSaveSinglePage::ImportRow frmSaveSinglePage::addImport(QBoxLayout* box, const char* kind,
                                                          const char* dialogTitle, const char* filter) {
    const QString name = QLatin1String(kind);
    ImportRow made{new QCheckBox(QStringLiteral("Import %1 from").arg(name), this), new QLineEdit(this),
                   new QPushButton(QStringLiteral("Browse..."), this)};
    made.check->setObjectName(QStringLiteral("chkImport") + name);
    made.path->setObjectName(QStringLiteral("txtImport") + name);
    made.path->setAccessibleName(QStringLiteral("File with %1 data").arg(name));
    made.browse->setObjectName(QStringLiteral("cmdImport") + name);
    made.browse->setAccessibleName(QStringLiteral("Browse for a file with %1 data").arg(name));
    auto* line = new QHBoxLayout;
    line->addWidget(made.check);
    line->addWidget(made.path, 1);
    line->addWidget(made.browse);
    box->addLayout(line);
    connect(made.browse, &QPushButton::clicked, this,
            [this, path = made.path, dialogTitle, filter] { browseImport(path, dialogTitle, filter); });
    return made;
}

QWidget* frmSaveSinglePage::makeImportGroup() {
    auto* group = new QGroupBox(QStringLiteral("Metadata"), this);
    auto* rows = new QVBoxLayout(group);
    m_exif = addImport(rows, "EXIF", "Open EXIF .xiff file", "EXIF file (*.xiff)|*.xiff");
    m_iptc = addImport(rows, "IPTC", "Open IPTC .ffo file", "IPTC file (*.ffo)|*.ffo");
    m_iptc.check->setMinimumWidth(m_exif.check->sizeHint().width());
    m_exif.check->setMinimumWidth(m_iptc.check->sizeHint().width());
    return group;
}

QBoxLayout* frmSaveSinglePage::makeButtons() {
    auto* save = new QPushButton(QStringLiteral("&Save"), this);
    save->setObjectName(QStringLiteral("cmdStarConversion"));
    save->setDefault(true);
    auto* exit = new QPushButton(QStringLiteral("E&xit"), this);
    exit->setObjectName(QStringLiteral("cmdExit"));
    connect(save, &QPushButton::clicked, this, &frmSaveSinglePage::cmdStarConversion_Click);
    connect(exit, &QPushButton::clicked, this, &frmSaveSinglePage::cmdExit_Click);
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(save);
    row->addWidget(exit);
    return row;
}

// --- showing and following the settings

void frmSaveSinglePage::subSetUp() {
    sldJPGQuality->setValue(m_settings.JpegQuality);
    lblJPGQuality->setNum(sldJPGQuality->value());
    chkJPGProgressive->setChecked(m_settings.JpegProgressive);
    const auto choose = [](QButtonGroup* group, int index) {
        if (QAbstractButton* button = group->button(index))
            button->setChecked(true);
    };
    choose(optJPEGDepth, m_settings.JpegDepth);
    choose(OptName, m_settings.NameOption);
    choose(optDestinationFolder, m_settings.DestinationOption);
    cboRenamePrefix->setEditText(m_settings.RenamePrefix);
    cboRenameSuffix->setEditText(m_settings.RenameSuffix);
    cboSeparator1->setEditText(m_settings.Separator1);
    cboSeparator2->setEditText(m_settings.Separator2);
    txtRenameGeneric->setText(m_settings.RenameGeneric);
    cboRenameGeneric->setEditText(m_settings.RenameGenericPattern);
    txtDestinationFolder->setText(m_settings.DestinationFolder.trimmed());
    chkOverwrite->setChecked(m_settings.Overwrite);
    chkProcessEditingList->setChecked(m_settings.ProcessEditingList);
    m_exif.check->setChecked(m_settings.ImportEXIF);
    m_exif.path->setText(m_settings.ImportEXIFFile);
    m_iptc.check->setChecked(m_settings.ImportIPTC);
    m_iptc.path->setText(m_settings.ImportIPTCFile);
}

void frmSaveSinglePage::connectChanges() {
    connect(sldJPGQuality, &QSlider::valueChanged, lblJPGQuality, qOverload<int>(&QLabel::setNum));
    // These two are written at the click, and so keep it however the dialog is left.
    connect(OptName, &QButtonGroup::idToggled, this, [this](int index, bool on) {
        if (on)
            m_settings.NameOption = qint16(index);
    });
    connect(optDestinationFolder, &QButtonGroup::idToggled, this, [this](int index, bool on) {
        if (on)
            m_settings.DestinationOption = quint8(index);
    });

    m_previewDelay.setSingleShot(true);
    m_previewDelay.setInterval(200);
    connect(&m_previewDelay, &QTimer::timeout, this, &frmSaveSinglePage::previewNames);
    const auto changed = [this] {
        enableControls();
        m_previewDelay.start();
    };
    for (QButtonGroup* group : {OptName, optDestinationFolder})
        connect(group, &QButtonGroup::idToggled, this, changed);
    for (QCheckBox* box : {m_exif.check, m_iptc.check, chkOverwrite, chkProcessEditingList})
        connect(box, &QCheckBox::toggled, this, changed);
    for (QComboBox* box : {cboRenamePrefix, cboRenameSuffix, cboSeparator1, cboSeparator2, cboRenameGeneric})
        connect(box, &QComboBox::editTextChanged, this, changed);
    for (QLineEdit* edit : {txtRenameGeneric, txtDestinationFolder})
        connect(edit, &QLineEdit::textChanged, this, changed);
}

void frmSaveSinglePage::enableControls() {
    for (QComboBox* box : {cboRenamePrefix, cboRenameSuffix, cboSeparator1, cboSeparator2})
        box->setEnabled(OptName->checkedId() == 1);
    txtRenameGeneric->setEnabled(OptName->checkedId() == 2);
    cboRenameGeneric->setEnabled(OptName->checkedId() == 2);
    txtDestinationFolder->setEnabled(optDestinationFolder->checkedId() == 1);
    cmdDestinationFolder->setEnabled(optDestinationFolder->checkedId() == 1);
    for (const ImportRow& row : {m_exif, m_iptc}) {
        row.path->setEnabled(row.check->isChecked());
        row.browse->setEnabled(row.check->isChecked());
    }
}

void frmSaveSinglePage::browseFolder() {
    const auto folder = desktop().folderDialog(txtDestinationFolder->text());
    if (folder && !folder->isEmpty())
        txtDestinationFolder->setText(*folder);
}

void frmSaveSinglePage::browseImport(QLineEdit* path, const char* title, const char* filter) {
    const auto choice = desktop().openFileDialog({QLatin1String(title), QLatin1String(filter), path->text()});
    if (choice && !choice->path.isEmpty())
        path->setText(choice->path);
}

/// Plans with what the controls show, without touching the record.
void frmSaveSinglePage::previewNames() {
    BatchSave shown = m_settings;
    copyNames(shown);
    copyDestination(shown);
    copyImports(shown);
    m_preview->show(shown);
}

// --- leaving

void frmSaveSinglePage::cmdStarConversion_Click() {
    // First, and kept through a refusal: closing the window after one lets the run go ahead.
    m_settings.Confirmed = -1;
    copyNames(m_settings);
    if (!countIsAccepted())
        return;
    copyDestination(m_settings);
    copyImports(m_settings);
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
        desktop().messageBox(text, MessageIcon::Information, MessageButtons::Ok, ApplicationName);
        return false;
    };
    const QString count = cboRenameGeneric->currentText().trimmed();
    if (count.isEmpty())
        return refuse(QStringLiteral("The count variable cannot be empty!"));
    if (!namingCounts().contains(count) && !isNumeric(count))
        return refuse(QStringLiteral("Count should be numeric!"));
    return true;
}

void frmSaveSinglePage::copyNames(BatchSave& settings) const {
    settings.RenameSuffix = cboRenameSuffix->currentText();
    settings.RenamePrefix = cboRenamePrefix->currentText();
    settings.Separator1 = cboSeparator1->currentText();
    settings.Separator2 = cboSeparator2->currentText();
    settings.RenameGeneric = txtRenameGeneric->text();
    settings.RenameGenericPattern = cboRenameGeneric->currentText();
    settings.Overwrite = chkOverwrite->isChecked();
    settings.JpegQuality = qint16(sldJPGQuality->value());
    settings.JpegProgressive = chkJPGProgressive->isChecked();
    settings.JpegDepth = optJPEGDepth->checkedId() == 0 ? 0 : 1;
}

/// A text of three characters stands as it is, as a drive's root does; any other gets a separator, also one
/// that ends in a separator already.
void frmSaveSinglePage::copyDestination(BatchSave& settings) const {
    const QString folder = txtDestinationFolder->text();
    settings.DestinationFolder = folder.trimmed().size() == 3 ? folder : folder + QLatin1Char('/');
}

void frmSaveSinglePage::copyImports(BatchSave& settings) const {
    settings.ImportEXIFFile = m_exif.path->text();
    settings.ImportIPTCFile = m_iptc.path->text();
    settings.ImportEXIF = m_exif.check->isChecked();
    settings.ImportIPTC = m_iptc.check->isChecked();
    settings.ProcessEditingList = chkProcessEditingList->isChecked();
}

} // namespace tarsel
