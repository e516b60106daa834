// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "base/Progress.h"
#include "collections/RowResult.h"
#include "imaging/ImageBox.h"
#include "output/PrintLayout.h"

#include <stop_token>
#include <vector>

namespace tarsel {

/// The text below a row's picture.
QString captionOf(const PrintLayout& layout, const ListRow& row);

/// Prints the rows of a basket, turned upright and with the tasks applied, into one PDF document. A row
/// without a picture is left out and the others go on. The document replaces an older one only at the end:
/// after a stop, when it can't be written, or when no row had a picture, nothing is written and no row is
/// reported as written.
struct PdfPrint {
    const ListView& lvPages;
    const ListView& lvEditBatch; ///< the tasks
    QString path;
    PrintLayout layout;
    std::stop_token stop;

    std::vector<RowResult> run(ImageBox& box, Progress& progress) const;
};

} // namespace tarsel
