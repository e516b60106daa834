// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/BasketFilling.h"

#include "collections/Basket.h"
#include "collections/FolderRow.h"
#include "collections/PictureFiles.h"
#include "collections/clsFileInfo.h"
#include "collections/modFileSystem.h"

#include <algorithm>

namespace tarsel {

namespace {

QString resolutionText(Size size) {
    return QStringLiteral("%1 X %2").arg(size.width).arg(size.height);
}

ListRow rowOf(const QString& name, const FileFacts& file, const QString& source, const QString& resolution) {
    ListRow row;
    row.text = name;
    row.tag = file.path;
    row.subItems = QStringList{resolution, file.size, file.type, source, QString()};
    return row;
}

FileFacts pageFileFacts(const QString& path) {
    FileInfo().setFilePath(path);
    return {path, FileInfo().fSizeFormated(0), FileInfo().fType(), true};
}

/// Pages of a row of the folder list; 0 where they are still to be counted.
int pagesOf(const ListRow& folderRow) {
    const QString known = folderRow.subItems.value(FolderColumn::Pages - 1);
    if (known.isEmpty() && mayHavePages(clsFileInfo::StripFileExtention(folderRow.text)))
        return 0;
    return std::max(known.toInt(), 1);
}

} // namespace

BasketItem basketItem(const FileFacts& file, AddedBy addedBy) {
    const QString name = clsFileInfo::StripFileFromPath(file.path);
    BasketSource source{addedBy, file.path, name, 1, {}, 0};
    if (mayHavePages(clsFileInfo::StripFileExtention(name))) {
        source.pages = 0;
        source.pageFileNumber = drawPageFileNumber();
    }
    return {source, rowOf(rowName(source.addedBy, name), file, file.path, QString())};
}

BasketItem basketItem(AddedBy addedBy, const ListRow& folderRow, const Picture& thumbnail) {
    BasketItem item{{addedBy, folderRow.tag, folderRow.text, pagesOf(folderRow), {}, 0}, {}};
    const auto column = [&](int number) { return folderRow.subItems.value(number - 1); };
    const QString resolution = column(FolderColumn::Resolution);
    const bool isKnown = !resolution.trimmed().isEmpty();
    if (isKnown)
        item.source.shown = thumbnail;
    if (item.source.pages != 1)
        item.source.pageFileNumber = drawPageFileNumber();
    item.row.text = rowName(addedBy, folderRow.text);
    item.row.tag = folderRow.tag;
    item.row.subItems = QStringList{isKnown ? resolution : QString(), column(FolderColumn::FileSize),
                                    column(FolderColumn::Type), folderRow.tag, QString()};
    return item;
}

BasketFilling::BasketFilling(CollectionLists lists, BasketReading& reading, int firstNumber, int count,
                             QString panel) :
    m_lists(lists),
    m_reading(reading), m_rows(lists.lvPages, reading, firstNumber, count), m_panel(std::move(panel)) {}

BasketFilling::~BasketFilling() {
    m_reading.stop();
    m_lists.lvPages.remove(m_rows.rows());
}

void BasketFilling::place(const std::vector<BasketItem>& items) {
    std::vector<ListRow> rows;
    std::vector<BasketSource> sources;
    for (const BasketItem& item : items) {
        rows.push_back(item.row);
        sources.push_back(item.source);
    }
    m_sources.insert(m_sources.end(), sources.begin(), sources.end());
    m_lists.lvPages.attachImages(&m_lists.ilPages);
    m_rows.append(std::move(rows), sources);
}

void BasketFilling::complete(const VisibleRows& visibleRows) {
    for (BasketReading::Numbered& found : m_rows.fetch(visibleRows))
        take(found);
    std::vector<int> gone;
    for (const int number : m_ended)
        if (const int row = m_rows.rowOf(number); row >= 0)
            gone.push_back(row);
    for (const int number : std::exchange(m_ended, {}))
        m_rows.end(number);
    std::sort(gone.begin(), gone.end());
    m_lists.lvPages.remove(gone);
}

void BasketFilling::take(BasketReading::Numbered& found) {
    const int row = m_rows.rowOf(found.number);
    BasketContent& content = found.content;
    m_showsPages = false;
    if (row < 0) {
        deletePageFile(content.pageFile);
        return;
    }
    BasketSource& source = m_sources[size_t(found.number)];
    m_lists.pbQueue.setSubject(source.fileName);
    source.shown = {}; // no longer needed
    if (content.failure)
        return takeFailure(found.number, source, *content.failure);
    if (!content.thumbnail)
        m_failed.emplace(found.number, source.path);
    else if (content.page > 0)
        takePage(row, source, content);
    else
        takePicture(row, source, *content.thumbnail);
    if (content.page > 0)
        showPage(source, content);
    if (content.isLast && (content.page > 0 || !content.thumbnail))
        m_ended.push_back(found.number);
    else if (content.isLast)
        m_rows.end(found.number);
}

void BasketFilling::takePicture(int row, const BasketSource& source, const Thumbnail& thumbnail) {
    ListRow complete = m_lists.lvPages.row(row);
    complete.icon = addIcon(m_lists.ilPages, thumbnail);
    QString& resolution = complete.subItems[BasketColumn::Resolution - 1];
    if (resolution.isEmpty())
        resolution = resolutionText(thumbnail.sourceSize);
    m_lists.lvPages.replace(row, std::move(complete));
    showStatus(tr("Adding file to basket - '%1'").arg(source.fileName));
}

/// The row of the page stands before that of its document.
void BasketFilling::takePage(int row, const BasketSource& source, const BasketContent& page) {
    ListRow added = rowOf(pageRowName(source.addedBy, source.fileName, page.page),
                          pageFileFacts(page.pageFile), source.path, resolutionText(page.size));
    added.key = QString::number(page.page);
    added.icon = addIcon(m_lists.ilPages, *page.thumbnail);
    m_lists.lvPages.insert(row, std::move(added));
}

void BasketFilling::takeFailure(int number, const BasketSource& source, const TrappedError& failure) {
    m_failed.emplace(number, source.path);
    m_unwritten.emplace(number, failure);
    m_ended.push_back(number);
}

void BasketFilling::showPage(const BasketSource& source, const BasketContent& page) {
    if (m_panel.isEmpty())
        return;
    const bool drag = source.addedBy == AddedBy::Drag;
    const QString extracting = drag ? tr("Please wait... extracting multipage document - '%3' Pages %1 of %2")
                                    : tr("Please wait... extracting multipage file - '%3' Pages %1 of %2");
    const QString name = drag ? modFileSystem::GetFileTitle(source.fileName) : source.fileName;
    showStatus(extracting.arg(page.page).arg(page.pages).arg(name));
    m_lists.pbQueue.start(page.pages, page.page);
    m_showsPages = !page.isLast;
}

void BasketFilling::showStatus(const QString& text) {
    if (!m_panel.isEmpty())
        m_lists.sbMain.setPanel(m_panel, text);
}

QStringList BasketFilling::failed() const {
    QStringList paths;
    for (const auto& [number, path] : m_failed)
        paths << path;
    return paths;
}

std::vector<std::pair<QString, TrappedError>> BasketFilling::unwritten() const {
    std::vector<std::pair<QString, TrappedError>> documents;
    for (const auto& [number, failure] : m_unwritten)
        documents.emplace_back(m_sources[size_t(number)].path, failure);
    return documents;
}

} // namespace tarsel
