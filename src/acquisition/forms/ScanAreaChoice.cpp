// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/forms/ScanAreaChoice.h"

#include "acquisition/forms/ScanPaper.h"
#include "collections/forms/ImageBoxView.h"

#include <QComboBox>
#include <QLabel>
#include <QLocale>
#include <QScopedValueRollback>
#include <cmath>

namespace tarsel {

namespace {

constexpr double smallest = 1; ///< millimeters that two areas may differ by and still be the same

bool isSame(const QRectF& one, const QRectF& other) {
    const auto isNear = [](QPointF a, QPointF b) { return (a - b).manhattanLength() < 2 * smallest; };
    return isNear(one.topLeft(), other.topLeft()) && isNear(one.bottomRight(), other.bottomRight());
}

} // namespace

ScanAreaChoice::ScanAreaChoice(QComboBox& papers, QLabel& text, QWidget& parent) :
    QObject(&parent), m_papers(papers), m_text(text), m_view(new ImageBoxView(m_box, &parent)) {
    m_view->setObjectName(QStringLiteral("picPreview"));
    m_view->setAccessibleName(tr("Preview of what is on the scanner"));
    showHint(false);
    m_view->pictureChanged({});
    SelectionOverlay& selection = m_view->selection();
    selection.setWording([this](const QRectF& band) { return sizeText(onBed(band).size()); });
    selection.setLasting();
    connect(&selection, &SelectionOverlay::regionSelected, this, &ScanAreaChoice::takeBand);
    connect(&selection, &SelectionOverlay::regionDropped, this, &ScanAreaChoice::showBand);
    connect(&selection, &SelectionOverlay::cancelled, this, [this] { wantArea(m_bed); });
    connect(&papers, &QComboBox::currentIndexChanged, this, &ScanAreaChoice::choosePaper);
}

void ScanAreaChoice::showHint(bool isFeeder) {
    m_view->setHint(
        isFeeder ? tr("Pages in the feeder have no preview. Choose their paper size, or their part by More "
                      "options.")
                 : tr("Press Preview to see what is on the scanner, and drag over the part to acquire."));
}

// --- the list

/// Each entry has its area as data; the last one, for any other area, has none.
void ScanAreaChoice::listPapers() {
    m_papers.clear();
    m_papers.addItem(tr("Whole area"), m_bed);
    for (const ScanPaper& paper : papersFor(m_bed.size()))
        m_papers.addItem(paper.name, areaOf(paper, m_bed));
    m_papers.addItem(tr("Selected area"));
}

void ScanAreaChoice::choosePaper(int index) {
    if (m_isShowing || index < 0)
        return;
    const QVariant area = m_papers.itemData(index);
    if (area.isValid())
        wantArea(area.toRectF());
    else
        showArea(); // the band says what is selected
}

void ScanAreaChoice::wantArea(const QRectF& area) {
    Q_EMIT changed(m_options.settingsForArea(area));
}

void ScanAreaChoice::show(const ScanOptions& options) {
    if (options.isEmpty())
        return showNothing();
    m_options = options;
    showHint(options.isFeeder() == true);
    const QRectF bed = options.wholeArea();
    const QScopedValueRollback showing(m_isShowing, true);
    m_papers.setEnabled(!bed.isEmpty());
    if (!isSame(bed, m_bed)) {
        m_bed = bed;
        listPapers();
        showPreview({});
    }
    m_area = options.area();
    showArea();
}

/// The preview stays for the same scanner, which may come back.
void ScanAreaChoice::showNothing() {
    const QScopedValueRollback showing(m_isShowing, true);
    m_papers.setEnabled(false);
    m_papers.setCurrentIndex(-1);
    m_text.clear();
}

void ScanAreaChoice::showArea() {
    const QScopedValueRollback showing(m_isShowing, true);
    int chosen = m_papers.count() - 1;
    for (int i = m_papers.count() - 2; i >= 0; --i)
        if (isSame(m_papers.itemData(i).toRectF(), m_area))
            chosen = i;
    m_papers.setCurrentIndex(chosen);
    m_text.setText(m_bed.isEmpty() ? QString() : sizeText(m_area.size()));
    showBand();
}

QString ScanAreaChoice::sizeText(const QSizeF& size) {
    const auto millimeters = [](double length) { return QLocale().toString(std::round(length)); };
    return tr("%1 × %2 mm").arg(millimeters(size.width()), millimeters(size.height()));
}

// --- the preview scan

void ScanAreaChoice::showPreview(const Picture& picture) {
    m_box.setPictureHandle(picture);
    PreviewPicture shown;
    shown.picture = picture;
    shown.size = {picture.width(), picture.height()};
    m_view->pictureChanged(shown);
    showBand();
}

/// None around the whole bed: there a drag begins a new one.
void ScanAreaChoice::showBand() {
    SelectionOverlay& selection = m_view->selection();
    if (selection.isHeld())
        return;
    if (!m_box.HasImage() || m_bed.isEmpty())
        return selection.clear();
    if (isSame(m_area, m_bed))
        return selection.arm(SelectionOverlay::Tool::Rectangle);
    const double across = m_box.Width() / m_bed.width(), down = m_box.Height() / m_bed.height();
    const QPointF corner = m_area.topLeft() - m_bed.topLeft();
    const QRectF band(corner.x() * across, corner.y() * down, m_area.width() * across,
                      m_area.height() * down);
    const QRectF shown = selection.selected();
    const bool isThere = selection.band().isVisible() &&
                         (shown.topLeft() - band.topLeft()).manhattanLength() < 2 &&
                         (shown.bottomRight() - band.bottomRight()).manhattanLength() < 2;
    if (!isThere)
        selection.select(band);
}

/// From pixels of the preview, which is there.
QRectF ScanAreaChoice::onBed(const QRectF& band) const {
    const double across = m_bed.width() / m_box.Width(), down = m_bed.height() / m_box.Height();
    return {m_bed.x() + band.x() * across, m_bed.y() + band.y() * down, band.width() * across,
            band.height() * down};
}

void ScanAreaChoice::takeBand() {
    if (m_box.HasImage())
        wantArea(onBed(m_view->selection().selected()));
}

} // namespace tarsel
