// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/forms/ScanPaper.h"

#include <QCoreApplication>
#include <QPageSize>

namespace tarsel {

namespace {

constexpr double tolerance = 1; ///< millimeters

constexpr QPageSize::PageSizeId documents[] = {QPageSize::A3, QPageSize::A4,     QPageSize::A5,
                                               QPageSize::A6, QPageSize::Letter, QPageSize::Legal};

std::vector<ScanPaper> usualPapers() {
    std::vector<ScanPaper> papers;
    for (const QPageSize::PageSizeId each : documents)
        papers.push_back({QPageSize::name(each), QPageSize::size(each, QPageSize::Millimeter)});
    for (const QSizeF centimeters : {QSizeF(9, 13), QSizeF(10, 15), QSizeF(13, 18)})
        papers.push_back({QCoreApplication::translate("ScanPaper", "Photo %1 × %2 cm")
                              .arg(centimeters.width())
                              .arg(centimeters.height()),
                          centimeters * 10});
    return papers;
}

} // namespace

std::vector<ScanPaper> papersFor(const QSizeF& bed) {
    std::vector<ScanPaper> papers = usualPapers();
    std::erase_if(papers, [&](const ScanPaper& paper) {
        return paper.size.width() > bed.width() + tolerance || paper.size.height() > bed.height() + tolerance;
    });
    return papers;
}

QRectF areaOf(const ScanPaper& paper, const QRectF& bed) {
    return {bed.topLeft(), paper.size.boundedTo(bed.size())};
}

} // namespace tarsel
