// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/BasketWorkspace.h"

#include "base/TrappedError.h"
#include "cli/Arguments.h"
#include "cli/FilePaths.h"
#include "collections/FolderView.h"
#include "collections/PictureFiles.h"
#include "collections/clsFileInfo.h"

#include <QCoreApplication>
#include <QSet>
#include <utility>

namespace tarsel::cli {

namespace {

/// A row of the folder list as the button "add" needs it.
ListRow folderRow(const QString& path) {
    ListRow row;
    row.text = clsFileInfo::StripFileFromPath(path);
    row.tag = path;
    row.selected = true;
    row.subItems = QStringList(FolderColumn::Type);
    FileInfo().setFilePath(path);
    row.subItems[FolderColumn::FileSize - 1] = FileInfo().fSizeFormated(0);
    row.subItems[FolderColumn::Type - 1] = FileInfo().fType();
    if (mayHavePages(modFileSystem::GetFileExtension(path)))
        row.subItems[FolderColumn::Pages - 1] = QString::number(ImageBox::PageCount(path));
    return row;
}

CollectionSettings withoutThumbnails() {
    CollectionSettings settings;
    settings.thumbnails = false;
    return settings;
}

QSet<QString> sourcesOf(const ListView& pages) {
    QSet<QString> sources;
    for (int i = 0; i < pages.count(); ++i)
        sources.insert(pages.subItem(i, BasketColumn::SourcePath));
    return sources;
}

} // namespace

BasketWorkspace::BasketWorkspace(Progress& progress, std::stop_token stop) :
    m_lists(m_workspace.lists(progress)), m_basket(m_lists, withoutThumbnails()) {
    ScratchFolder::removeAbandoned();
    m_basket.stop = std::move(stop);
}

/// Pages need a folder for their files.
void BasketWorkspace::prepareFor(const QString& path) {
    if (m_folder || !mayHavePages(modFileSystem::GetFileExtension(path)))
        return;
    m_folder.emplace();
    m_basket.settings.programFolder = m_folder->path();
}

void BasketWorkspace::fill(const QStringList& operands) {
    if (operands.isEmpty())
        throw UsageError{QCoreApplication::translate("CommandLine", "no basket and no picture given")};
    if (operands.size() == 1 && isBasketFile(operands.first()))
        return openBasketFile(filePath(operands.first()));
    for (const QString& operand : operands)
        if (isBasketFile(operand))
            throw UsageError{
                QCoreApplication::translate("CommandLine", "%1: a basket file is the only operand")
                    .arg(operand)};
    addPictures(operands);
}

void BasketWorkspace::openBasketFile(const QString& path) {
    const auto entries = modSaveOpenImageList::readBasketEntries(path);
    for (const auto& entry : entries)
        prepareFor(entry.path);
    if (!modSaveOpenImageList::fncOpenImageBasket(path, m_basket, m_lists))
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("CommandLine", "%1: not a readable basket file").arg(path));
    QStringList paths;
    for (const auto& entry : entries)
        paths << entry.path;
    noteMissing(paths);
}

void BasketWorkspace::addPictures(const QStringList& paths) {
    QStringList absolute;
    for (const QString& path : paths) {
        prepareFor(path);
        absolute << filePath(path);
        m_workspace.lvFolder.add(folderRow(absolute.last()));
    }
    m_basket.cmdAddToQueue_Click();
    noteMissing(absolute);
}

/// An error ends the adding: what has no row then is missing too.
void BasketWorkspace::noteMissing(const QStringList& paths) {
    m_missing = m_basket.LTemp();
    QSet<QString> known = sourcesOf(m_workspace.lvPages);
    known += QSet<QString>(m_missing.begin(), m_missing.end());
    for (const QString& path : paths)
        if (!known.contains(path)) {
            known.insert(path);
            m_missing << path;
        }
}

} // namespace tarsel::cli
