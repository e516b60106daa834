// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/forms/GenerateAlbum.h"

#include "controls/ProgressBar.h"
#include "controls/frmStatus.h"
#include "publishing/ForeignFile.h"

#include <QCoreApplication>

namespace tarsel {

std::vector<RowResult> generateAlbum(const AlbumSources& sources, const AlbumOptions& options,
                                     const AlbumRun& run, QWidget* owner) {
    std::vector<RowResult> results;
    if (!mayReplaceForeignFiles(sources.lvPages, options))
        return results;
    frmStatus status(owner);
    status.begin(QCoreApplication::translate("GenerateAlbum", "Loading Template..."));
    fncGenerateAlbum(sources, options, status.pbQueue(), run, results);
    status.finish();
    return results;
}

} // namespace tarsel
