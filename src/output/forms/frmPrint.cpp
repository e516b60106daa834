// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/forms/frmPrint.h"

#include "base/IgnoringErrors.h"
#include "base/Stop.h"
#include "controls/FormScrollArea.h"
#include "output/forms/PagePreview.h"
#include "output/forms/ui_frmPrint.h"

#include <QAbstractSpinBox>
#include <QKeyEvent>
#include <QPageSize>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QShowEvent>
#include <algorithm>
#include <utility>

namespace tarsel {

namespace {

constexpr QPageSize::PageSizeId usualPapers[] = {QPageSize::A3,     QPageSize::A4,    QPageSize::A5,
                                                 QPageSize::A6,     QPageSize::B5,    QPageSize::Postcard,
                                                 QPageSize::Letter, QPageSize::Legal, QPageSize::Tabloid};
constexpr int previewSide = 700;     ///< pixels of a picture in the preview
constexpr std::size_t mostHeld = 80; ///< pictures kept for other pages

int checkedOf(const QButtonGroup& group) {
    return group.checkedButton()->objectName().section(QLatin1Char('_'), -1).toInt();
}

void check(const QButtonGroup& group, int number) {
    for (QAbstractButton* button : group.buttons())
        if (button->objectName().endsWith(QStringLiteral("_%1").arg(number)))
            button->setChecked(true);
}

} // namespace

frmPrint::frmPrint(PrintLayout& layout, PrintSubject subject, QWidget* owner) :
    QDialog(owner), m_layout(layout), m_subject(std::move(subject)), m_ui(std::make_unique<Ui::frmPrint>()),
    m_loading([this](const std::vector<int>& indexes, const std::stop_token& stop) {
        for (const int index : indexes) {
            PrintPicture loaded;
            ignoringErrors([&] {
                const StopScope scope(stop);
                loaded = reducedTo(m_subject.load(index), previewSide);
            });
            if (stop.stop_requested())
                return;
            QMetaObject::invokeMethod(
                this, [this, index, loaded] { takeLoaded(index, loaded); }, Qt::QueuedConnection);
        }
    }) {
    m_ui->setupUi(this);
    fillBoxes();
    listPrinters();
    showLayout();
    connectControls();
    choosePrinter();
    m_ui->cmdPrint->setFocus();
}

frmPrint::~frmPrint() = default;

/// Return ends the typing of a number; paper is spent by the button alone.
void frmPrint::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isReturn || !qobject_cast<QAbstractSpinBox*>(focusWidget()))
        QDialog::keyPressEvent(event);
}

// --- the controls

void frmPrint::fillBoxes() {
    m_ui->cboPaper->addItem({}, PrintLayout::printersPaper);
    for (const QPageSize::PageSizeId paper : usualPapers)
        m_ui->cboPaper->addItem(QPageSize::name(paper), int(paper));
    m_ui->chkRepeat->setVisible(m_subject.count > 1);
}

void frmPrint::listPrinters() {
    const QStringList printers = QPrinterInfo::availablePrinterNames();
    for (const QString& printer : printers)
        m_ui->cboPrinter->addItem(printer, printer);
    m_ui->cboPrinter->addItem(tr("PDF document"), QString());
    m_ui->lblNoPrinter->setVisible(printers.isEmpty());
    if (printers.isEmpty())
        return;
    m_printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    m_printer->setFullPage(true);
    const int usual = int(printers.indexOf(QPrinterInfo::defaultPrinterName()));
    m_ui->cboPrinter->setCurrentIndex(std::max(usual, 0));
}

void frmPrint::showLayout() {
    selectPaper(m_layout.paper);
    check(*m_ui->optOrientation, m_layout.landscape ? 1 : 0);
    check(*m_ui->optSizing, m_layout.sizing);
    m_ui->spnScale->setValue(m_layout.scale);
    m_ui->cboPosition->setCurrentIndex(m_layout.position);
    m_ui->spnPerPage->setValue(m_layout.perPage);
    m_ui->chkRepeat->setChecked(m_layout.repeats);
    m_ui->spnMarginAcross->setValue(m_layout.marginAcross);
    m_ui->spnMarginDown->setValue(m_layout.marginDown);
    m_ui->cboCaption->setCurrentIndex(m_layout.caption);
}

PrintLayout frmPrint::shown() const {
    PrintLayout layout;
    layout.paper = m_ui->cboPaper->currentData().toInt();
    layout.landscape = m_ui->optOrientation_1->isChecked();
    layout.sizing = checkedOf(*m_ui->optSizing);
    layout.scale = m_ui->spnScale->value();
    layout.position = m_ui->cboPosition->currentIndex();
    layout.perPage = m_ui->spnPerPage->value();
    layout.repeats = m_ui->chkRepeat->isChecked();
    layout.marginAcross = m_ui->spnMarginAcross->value();
    layout.marginDown = m_ui->spnMarginDown->value();
    layout.caption = m_ui->cboCaption->currentIndex();
    return layout;
}

void frmPrint::connectControls() {
    for (const QComboBox* box : {m_ui->cboPaper, m_ui->cboPosition, m_ui->cboCaption})
        connect(box, &QComboBox::currentIndexChanged, this, &frmPrint::showPage);
    for (const QDoubleSpinBox* box : {m_ui->spnScale, m_ui->spnMarginAcross, m_ui->spnMarginDown})
        connect(box, &QDoubleSpinBox::valueChanged, this, &frmPrint::showPage);
    for (const QSpinBox* box : {m_ui->spnPerPage, m_ui->spnPage})
        connect(box, &QSpinBox::valueChanged, this, &frmPrint::showPage);
    for (const QButtonGroup* group : {m_ui->optOrientation, m_ui->optSizing})
        connect(group, &QButtonGroup::idToggled, this, [this](int, bool on) {
            if (on)
                showPage();
        });
    connect(m_ui->chkRepeat, &QCheckBox::toggled, this, &frmPrint::showPage);
    connect(m_ui->cboPrinter, &QComboBox::currentIndexChanged, this, &frmPrint::choosePrinter);
    connect(m_ui->cmdPrinter, &QPushButton::clicked, this, &frmPrint::cmdPrinter_Click);
}

/// Sizes that the controls asked for before they were shown don't count any more. The options set the least
/// width; the page takes the rest.
void frmPrint::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (event->spontaneous())
        return;
    m_ui->options->layout()->invalidate();
    m_ui->optionsArea->updateGeometry();
    layout()->activate();
    const int options = m_ui->optionsArea->minimumSizeHint().width();
    setMinimumSize(options + m_ui->picPage->minimumWidth() + 60, 16 * fontMetrics().height());
    fitToScreen(*this, sizeHint());
}

void frmPrint::done(int result) {
    m_layout = shown();
    QDialog::done(result);
}

// --- the printer

QPrinter* frmPrint::printer() const {
    return m_ui->cboPrinter->currentData().toString().isEmpty() ? nullptr : m_printer.get();
}

void frmPrint::choosePrinter() {
    if (QPrinter* chosen = printer()) {
        chosen->setPrinterName(m_ui->cboPrinter->currentData().toString());
        m_usualPaper = QPrinterInfo(*chosen).defaultPageSize();
    }
    m_ui->cmdPrinter->setEnabled(printer());
    showPage();
}

/// The system's dialog sets paper, orientation, copies and what the printer can do.
void frmPrint::cmdPrinter_Click() {
    (void)sheet(); // which the dialog starts from
    QPrintDialog dialog(m_printer.get(), this);
    dialog.setOptions(QAbstractPrintDialog::PrintShowPageSize | QAbstractPrintDialog::PrintCollateCopies);
    if (dialog.exec() == QDialog::Accepted)
        takePaperOf(*m_printer);
}

void frmPrint::takePaperOf(const QPrinter& printer) {
    const QPageLayout sheet = printer.pageLayout();
    const int chosen = m_ui->cboPrinter->findData(printer.printerName());
    if (chosen >= 0)
        m_ui->cboPrinter->setCurrentIndex(chosen);
    const bool isNamed =
        sheet.pageSize().id() != QPageSize::Custom && !sheet.pageSize().isEquivalentTo(m_usualPaper);
    selectPaper(isNamed ? int(sheet.pageSize().id()) : PrintLayout::printersPaper);
    check(*m_ui->optOrientation, sheet.orientation() == QPageLayout::Landscape ? 1 : 0);
    showPage();
}

/// A size that the list lacks is added to it.
void frmPrint::selectPaper(int paper) {
    if (m_ui->cboPaper->findData(paper) < 0)
        m_ui->cboPaper->addItem(QPageSize::name(QPageSize::PageSizeId(paper)), paper);
    m_ui->cboPaper->setCurrentIndex(m_ui->cboPaper->findData(paper));
}

QPageLayout frmPrint::sheet() const {
    const PrintLayout layout = shown();
    QPrinter* const chosen = printer();
    if (!chosen)
        return sheetOf(layout);
    chosen->setPageSize(layout.paper == PrintLayout::printersPaper ? m_usualPaper
                                                                   : sheetOf(layout).pageSize());
    chosen->setPageOrientation(sheetOf(layout).orientation());
    return chosen->pageLayout();
}

// --- the page

PrintLayout frmPrint::pageLayout() const {
    PrintLayout layout = shown();
    layout.repeats = layout.repeats || m_subject.count == 1;
    return layout;
}

std::vector<int> frmPrint::indexesOnPage() const {
    const PrintLayout layout = pageLayout();
    const int first = (m_ui->spnPage->value() - 1) * layout.picturesOnPage();
    std::vector<int> indexes;
    for (int place = 0; place < layout.perPage; ++place) {
        const int index = layout.repeats ? first : first + place;
        if (index < m_subject.count)
            indexes.push_back(index);
    }
    return indexes;
}

void frmPrint::showPage() {
    const PrintLayout layout = pageLayout();
    const int pages = layout.pageCount(m_subject.count);
    m_ui->spnPage->setMaximum(pages);
    m_ui->spnPage->setSuffix(tr(" of %1").arg(pages));
    m_ui->spnPage->setEnabled(pages > 1);
    const QPageLayout page = sheet();
    const bool isPrintersPaper = layout.paper == PrintLayout::printersPaper;
    m_ui->cboPaper->setItemText(0, isPrintersPaper ? tr("Usual paper (%1)").arg(page.pageSize().name())
                                                   : tr("Usual paper"));
    const std::vector<int> indexes = indexesOnPage();
    loadMissing(indexes);
    PagePreview::Page shownPage{paperOf(page), layout, {}};
    for (const int index : indexes) {
        const auto found = m_pictures.find(index);
        shownPage.pictures.push_back(found == m_pictures.end() ? PrintPicture() : found->second);
        shownPage.pictures.back().caption = m_subject.caption(layout, index);
    }
    m_ui->picPage->show(std::move(shownPage));
}

void frmPrint::loadMissing(const std::vector<int>& indexes) {
    std::vector<int> missing;
    for (const int index : indexes)
        if (!m_pictures.contains(index) && (missing.empty() || missing.back() != index))
            missing.push_back(index);
    if (missing.empty() || missing == m_wanted)
        return;
    m_wanted = missing;
    m_loading.request(std::move(missing));
}

void frmPrint::takeLoaded(int index, const PrintPicture& picture) {
    std::erase(m_wanted, index);
    if (m_pictures.size() >= mostHeld)
        m_pictures.clear();
    m_pictures[index] = picture;
    showPage();
}

} // namespace tarsel
