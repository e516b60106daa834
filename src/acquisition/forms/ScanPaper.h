// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRectF>
#include <QSizeF>
#include <QString>
#include <vector>

namespace tarsel {

/// A usual size of what is put on a scanner, in millimeters.
struct ScanPaper {
    QString name;
    QSizeF size;
};

/// Those that fit on the bed, upright. A bed that is short of one by less than a millimeter, as scanners
/// report it, holds it all the same.
std::vector<ScanPaper> papersFor(const QSizeF& bed);

/// The part of the bed that the paper covers when it is put into the corner where the scan begins.
QRectF areaOf(const ScanPaper& paper, const QRectF& bed);

} // namespace tarsel
