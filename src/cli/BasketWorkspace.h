// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ScratchFolder.h"
#include "collections/Basket.h"
#include "collections/BasketFile.h"
#include "collections/Workspace.h"

#include <QStringList>
#include <optional>
#include <stop_token>

namespace tarsel::cli {

/// The basket of the command line: the lists and boxes that a window would lend it, without thumbnails. The
/// pages of documents become files in a temporary folder of this run, which is made when one may be needed
/// and removed at the end.
class BasketWorkspace {
public:
    /// A requested stop ends the adding of operands and pages.
    explicit BasketWorkspace(Progress& progress, std::stop_token stop = {});

    /// Fills the basket from its operands: one basket file, or pictures as if they were added by the button.
    void fill(const QStringList& operands);
    ListView& pages() { return m_workspace.lvPages; }
    /// Operands, or entries of the basket file, that could not be added, or not with all of their pages.
    const QStringList& missing() const { return m_missing; }

private:
    void openBasketFile(const QString& path);
    void noteMissing(const QStringList& paths);
    void addPictures(const QStringList& paths);
    void prepareFor(const QString& path);

    std::optional<ScratchFolder> m_folder;
    Workspace m_workspace;
    CollectionLists m_lists;
    Basket m_basket;
    QStringList m_missing;
};

using modSaveOpenImageList::isBasketFile;

} // namespace tarsel::cli
