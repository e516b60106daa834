// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/forms/frmPrint.h"

#include "base/IgnoringErrors.h"
#include "base/Stop.h"
#include "controls/FormScrollArea.h"
#include "controls/WheelToPanel.h"
#include "output/forms/PagePreview.h"
#include "output/forms/Printers.h"
#include "output/forms/ui_frmPrint.h"

#include <QAbstractSpinBox>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QPageSize>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <QShowEvent>
#include <QSignalBlocker>
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
    letWheelScroll(*m_ui->options);
    fillBoxes();
    showLayout();
    connectControls();
    choosePrinter();
    m_printerQuestion.ask([this] { return [this, found = findPrinters()] { listPrinters(found); }; });
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
    listPapers();
    QSizePolicy ofState = m_ui->lblPrinterState->sizePolicy();
    ofState.setRetainSizeWhenHidden(true); // what follows stays in its place
    m_ui->lblPrinterState->setSizePolicy(ofState);
    m_ui->cboPrinter->addItem(tr("Looking for printers..."));
    m_ui->cboPrinter->addItem(tr("PDF document"), QString());
    m_ui->chkRepeat->setVisible(m_subject.count > 1);
}

/// Those that the printer has; its usual one stands for one that it lacks.
void frmPrint::listPapers() {
    const OpenPrinter* const opened = openedPrinter();
    const int wanted = m_ui->cboPaper->count() > 0 ? m_ui->cboPaper->currentData().toInt() : m_layout.paper;
    const QSignalBlocker blocker(m_ui->cboPaper);
    m_ui->cboPaper->clear();
    m_ui->cboPaper->addItem({}, PrintLayout::printersPaper);
    const auto add = [this](QPageSize::PageSizeId paper) {
        if (paper != QPageSize::Custom && m_ui->cboPaper->findData(int(paper)) < 0)
            m_ui->cboPaper->addItem(QPageSize::name(paper), int(paper));
    };
    if (opened && !opened->papers.isEmpty())
        for (const QPageSize& paper : opened->papers)
            add(paper.id());
    else
        std::ranges::for_each(usualPapers, add);
    const bool hasAny = !opened || opened->papers.isEmpty();
    if (hasAny || m_ui->cboPaper->findData(wanted) >= 0)
        selectPaper(wanted);
}

/// They take the place of the first entry. The user may have chosen the PDF document meanwhile.
void frmPrint::listPrinters(const FoundPrinters& found) {
    QComboBox& printers = *m_ui->cboPrinter;
    {
        const QSignalBlocker blocker(&printers);
        const bool hasChosen = printers.currentIndex() > 0;
        printers.removeItem(0);
        for (const QString& name : found.names)
            printers.insertItem(printers.count() - 1, name, name);
        if (!hasChosen)
            printers.setCurrentIndex(std::max(int(found.names.indexOf(found.usual)), 0));
    }
    choosePrinter();
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

/// Empty for the PDF document, and while printers are looked for.
QString frmPrint::chosenPrinter() const {
    return m_ui->cboPrinter->currentData().toString();
}

OpenPrinter* frmPrint::openedPrinter() const {
    const auto found = m_printers.find(chosenPrinter());
    return found != m_printers.end() && found->second->isThere ? found->second.get() : nullptr;
}

QPrinter* frmPrint::printer() const {
    OpenPrinter* const opened = openedPrinter();
    return opened ? &opened->printer : nullptr;
}

void frmPrint::choosePrinter() {
    const QString name = chosenPrinter();
    if (!name.isEmpty() && !openedPrinter()) {
        m_printers.erase(name);
        m_printerQuestion.ask([this, name] {
            return [this, name, opened = openPrinter(name)] {
                m_printers[name] = opened;
                showPrinter();
            };
        });
    }
    showPrinter();
}

void frmPrint::showPrinter() {
    const bool isReady =
        m_ui->cboPrinter->currentData().isValid() && (chosenPrinter().isEmpty() || printer());
    m_ui->cmdPrint->setEnabled(isReady);
    m_ui->cmdPrinter->setEnabled(printer());
    listPapers();
    const QString state = printerState();
    if (!state.isEmpty())
        m_ui->lblPrinterState->setText(state);
    m_ui->lblPrinterState->setVisible(!state.isEmpty());
    showPage();
}

QString frmPrint::printerState() const {
    if (m_ui->cboPrinter->count() == 1)
        return tr("No printer was found.");
    if (chosenPrinter().isEmpty() || printer())
        return {};
    return m_printers.contains(chosenPrinter()) ? tr("The printer is gone.") : tr("Asking the printer...");
}

/// The system's dialog sets paper, orientation, copies and what the printer can do.
void frmPrint::cmdPrinter_Click() {
    (void)sheet(); // which the dialog starts from
    const std::shared_ptr<OpenPrinter> opened = m_printers[chosenPrinter()];
    QPrintDialog dialog(&opened->printer, this);
    dialog.setObjectName(QStringLiteral("QPrintDialog"));
    dialog.setOptions(QAbstractPrintDialog::PrintShowPageSize | QAbstractPrintDialog::PrintCollateCopies);
    if (const auto* buttons = dialog.findChild<QDialogButtonBox*>())
        if (QPushButton* accept = buttons->button(QDialogButtonBox::Ok))
            accept->setText(tr("OK")); // nothing is printed yet
    if (dialog.exec() == QDialog::Accepted)
        takeSetUp(opened);
}

/// The user may have changed to another printer there, which is open then.
void frmPrint::takeSetUp(const std::shared_ptr<OpenPrinter>& opened) {
    const QString name = opened->printer.printerName();
    if (name != chosenPrinter()) {
        m_printers.erase(chosenPrinter());
        const QPrinterInfo info(opened->printer);
        opened->usualPaper = info.defaultPageSize();
        opened->papers = info.supportedPageSizes();
        m_printers[name] = opened;
    }
    takePaperOf(*opened);
}

void frmPrint::takePaperOf(const OpenPrinter& opened) {
    const QPageLayout sheet = opened.printer.pageLayout();
    const int chosen = m_ui->cboPrinter->findData(opened.printer.printerName());
    if (chosen >= 0)
        m_ui->cboPrinter->setCurrentIndex(chosen);
    const bool isNamed =
        sheet.pageSize().id() != QPageSize::Custom && !sheet.pageSize().isEquivalentTo(opened.usualPaper);
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
    OpenPrinter* const chosen = openedPrinter();
    if (!chosen)
        return sheetOf(layout);
    chosen->printer.setPageSize(layout.paper == PrintLayout::printersPaper ? chosen->usualPaper
                                                                           : sheetOf(layout).pageSize());
    chosen->printer.setPageOrientation(sheetOf(layout).orientation());
    return chosen->printer.pageLayout();
}

// --- the page

PixelSize frmPrint::drawnSize(PixelSize pixels) {
    const QSize fitted =
        QSize(pixels.width, pixels.height).scaled(previewSide, previewSide, Qt::KeepAspectRatio);
    return {fitted.width() + 1, fitted.height() + 1};
}

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
