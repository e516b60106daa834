// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/Basket.h"

#include "base/ErrorTrap.h"
#include "base/EventLoop.h"
#include "collections/FolderView.h"
#include "collections/OpenDocument.h"
#include "collections/PictureFiles.h"
#include "collections/Thumbnail.h"
#include "collections/clsFileInfo.h"
#include "imaging/DisplayColors.h"
#include "imaging/Upright.h"

#include <algorithm>
#include <ranges>

namespace tarsel {

namespace {

QString resolutionText(Size size) {
    return QStringLiteral("%1 X %2").arg(size.width).arg(size.height);
}

/// The text of a row that shows `path`, whose file FileInfo describes.
ListRow rowOf(const QString& name, const QString& path, const QString& source, Size size) {
    ListRow row;
    row.text = name;
    row.tag = path;
    row.subItems =
        QStringList{resolutionText(size), FileInfo().fSizeFormated(0), FileInfo().fType(), source, QString()};
    return row;
}

} // namespace

/// A file on its way into the basket.
struct Basket::Source {
    AddedBy addedBy;
    QString path;
    QString fileName;
};

QStringList basketHeaders() {
    return {Basket::tr("File Name"), Basket::tr("Resolution"), Basket::tr("Size"),
            Basket::tr("Type"),      Basket::tr("Path"),       Basket::tr("Description")};
}

Basket::Basket(CollectionLists lists, CollectionSettings initial) :
    settings(std::move(initial)), m_lists(lists) {}

namespace {

/// Pages of a row of the folder list. A row that is still being completed doesn't know them yet.
int pagesOf(const ListRow& row) {
    const QString known = row.subItems.value(FolderColumn::Pages - 1);
    if (known.isEmpty() && mayHavePages(clsFileInfo::StripFileExtention(row.text)))
        return ImageBox::PageCount(row.tag);
    return known.toInt();
}

QStringList selectedTags(const ListView& list) {
    QStringList tags;
    for (const int row : list.selectedRows())
        tags << list.row(row).tag;
    return tags;
}

/// The row with a tag, searched from row `from` on and then from the first row; -1 when there is none.
int rowOfTag(const ListView& list, const QString& tag, int from) {
    for (int i = 0; i < list.count(); ++i)
        if (const int row = (from + i) % list.count(); list.row(row).tag == tag)
            return row;
    return -1;
}

} // namespace

// --- adding

Basket::Adding::Adding(Basket& basket) : m_basket(basket) {
    if (m_basket.m_adding++ > 0)
        return;
    m_basket.m_stopAdding = false;
    if (m_basket.addingChanged)
        m_basket.addingChanged(true);
}

Basket::Adding::~Adding() {
    if (--m_basket.m_adding > 0)
        return;
    m_basket.m_lists.pbQueue.hide();
    if (m_basket.addingChanged)
        m_basket.addingChanged(false);
}

bool Basket::Adding::goesOn() const {
    if (!m_basket.m_stopAdding)
        service<EventLoop>().yield();
    return !m_basket.m_stopAdding && !m_basket.stop.stop_requested();
}

void Basket::cmdAddToQueue_Click() {
    std::ignore = trap("FrmMain.cmdAddToQueue_Click", [&] { addSelected(AddedBy::Button, Adding(*this)); });
}

void Basket::AddToBasketByDrag() {
    std::ignore = trap("AddToBasketByDrag", [&] { addSelected(AddedBy::Drag, Adding(*this)); });
}

void Basket::addSelected(AddedBy addedBy, const Adding& adding) {
    TrappingString = QStringLiteral("Adding selected files to basket!");
    m_failed.clear();
    const ListView& folder = m_lists.lvFolder;
    if (!folder.isEmpty()) {
        // Pending input and a listing in the background move and remove rows while files are added.
        const QStringList tags = selectedTags(folder);
        for (int done = 0, next = 0; done < tags.size(); ++done) {
            m_lists.pbQueue.start(int(tags.size()), done);
            if (!adding.goesOn())
                break;
            if (const int row = rowOfTag(folder, tags[done], next); row >= 0) {
                addFolderRow(addedBy, row, adding);
                next = row + 1;
            }
        }
        showStatus(addedBy, QString());
        showCount();
    }
    m_lists.lvPages.selectOnly(-1);
}

void Basket::addFolderRow(AddedBy addedBy, int folderRow, const Adding& adding) {
    const ListRow row = m_lists.lvFolder.row(folderRow);
    if (m_lists.lvPages.findSubItem(BasketColumn::SourcePath, row.tag) >= 0)
        return;
    FileInfo().setFilePath(row.tag);
    showStatus(addedBy, tr("Adding file to basket - '%1'").arg(row.text));
    const Source source{addedBy, row.tag, row.text};
    const int pages = pagesOf(row);
    if (pages < 2)
        addPicture(source, row);
    else
        addPages(source, pages, adding);
}

void Basket::addPicture(const Source& source, const ListRow& folderRow) {
    std::optional<Thumbnail> thumbnail = folderThumbnail(folderRow);
    if (!thumbnail)
        thumbnail = loadThumbnail(source.path, settings.basketBox(), settings.upright);
    if (!thumbnail) {
        noteFailed(source.path);
        return;
    }
    const QString resolution = folderRow.subItems.value(FolderColumn::Resolution - 1);
    ListRow row;
    row.text = rowName(source.addedBy, source.fileName);
    row.tag = source.path;
    row.subItems =
        QStringList{resolution.trimmed().isEmpty() ? resolutionText(thumbnail->sourceSize) : resolution,
                    folderRow.subItems.value(FolderColumn::FileSize - 1),
                    folderRow.subItems.value(FolderColumn::Type - 1), source.path, QString()};
    addRow(std::move(row), *thumbnail);
}

/// The folder list's own thumbnail of a row, scaled to the basket's size: a picture that was decoded for one
/// list is not decoded again for the other.
std::optional<Thumbnail> Basket::folderThumbnail(const ListRow& folderRow) const {
    const Picture shown = pictureAt(m_lists.ilFolder, folderRow.icon);
    const bool knowsSize = !folderRow.subItems.value(FolderColumn::Resolution - 1).trimmed().isEmpty();
    if (shown.isNull() || !knowsSize)
        return std::nullopt;
    return makeThumbnail(shown, settings.basketBox());
}

void Basket::subAddEntryToListView(const QString& path) {
    const Adding adding(*this);
    std::ignore = trap("subAddEntryToListView", [&] {
        TrappingString = QStringLiteral("Opening image list from file!");
        FileInfo().setFilePath(path);
        const Source source{AddedBy::BasketFile, path, clsFileInfo::StripFileFromPath(path)};
        const bool document = mayHavePages(clsFileInfo::StripFileExtention(source.fileName));
        if (const int pages = document ? ImageBox::PageCount(path) : 1; pages > 1)
            return addPages(source, pages, adding);
        const auto thumbnail = loadThumbnail(path, settings.basketBox(), settings.upright);
        if (thumbnail)
            addRow(rowOf(rowName(source.addedBy, source.fileName), path, path, thumbnail->sourceSize),
                   *thumbnail);
        else
            noteFailed(path);
    });
}

/// A row whose file can't be read keeps its picture.
void Basket::makeThumbnailsAgain() {
    ListView& list = m_lists.lvPages;
    if (list.isEmpty() || !settings.thumbnails)
        return;
    std::ignore = trap("Basket.makeThumbnailsAgain", [&] {
        const Adding adding(*this);
        QStringList tags;
        for (int row = 0; row < list.count(); ++row)
            tags << list.row(row).tag;
        for (int done = 0, next = 0; done < tags.size() && adding.goesOn(); ++done) {
            m_lists.pbQueue.start(int(tags.size()), done);
            const int row = rowOfTag(list, tags[done], next);
            const auto thumbnail =
                row < 0 ? std::nullopt : loadThumbnail(tags[done], settings.basketBox(), settings.upright);
            if (!thumbnail)
                continue;
            m_lists.ilPages.set(list.row(row).icon, QVariant::fromValue(thumbnail->picture));
            list.setIcon(row, list.row(row).icon);
            next = row + 1;
        }
    });
}

void Basket::addRow(ListRow row, const Thumbnail& thumbnail) {
    row.icon = addIcon(m_lists.ilPages, thumbnail);
    m_lists.lvPages.attachImages(&m_lists.ilPages);
    m_lists.lvPages.add(std::move(row));
}

// --- pages of documents

void Basket::addPages(const Source& source, int pages, const Adding& adding) {
    const bool drag = source.addedBy == AddedBy::Drag;
    const QString extracting = drag ? tr("Please wait... extracting multipage document - '%3' Pages %1 of %2")
                                    : tr("Please wait... extracting multipage file - '%3' Pages %1 of %2");
    const QString name = drag ? modFileSystem::GetFileTitle(source.fileName) : source.fileName;
    const bool showing = source.addedBy != AddedBy::BasketFile;
    if (showing)
        m_lists.pbQueue.start(pages);
    const OpenDocument document(source.path);
    for (int page = 1; page <= pages && adding.goesOn(); ++page) {
        if (showing)
            showStatus(source.addedBy, extracting.arg(page).arg(pages).arg(name));
        addPage(source, document, page);
        if (showing)
            m_lists.pbQueue.setValue(page);
    }
    m_pageBox.Clear();
}

/// A page that can't be read gets no row. A page file that can't be written (a full disk) is an error.
void Basket::addPage(const Source& source, const OpenDocument& document, int page) {
    if (!document.loadPage(m_pageBox, page)) {
        noteFailed(source.path);
        return;
    }
    const Size size{m_pageBox.Width(), m_pageBox.Height()};
    const QString pageFile = newPageFile(settings.programFolder, source.addedBy, source.fileName, page);
    const std::optional<Thumbnail> thumbnail = pageThumbnail(source, pageFile);
    if (!thumbnail) {
        noteFailed(source.path);
        return;
    }
    FileInfo().setFilePath(pageFile);
    addRow(rowOf(pageRowName(source.addedBy, source.fileName, page), pageFile, source.path, size),
           *thumbnail);
}

namespace {
/// The box's picture as its thumbnail shows it; the page file keeps it as it is, with its orientation.
Picture seenPicture(const ImageBox& box, bool upright) {
    const Picture picture = inDisplayColors(box.picture(), box.metadata());
    return upright ? uprightPicture(picture, exifOrientation(box.metadata())) : picture;
}
} // namespace

/// Saves the page in the box and returns its thumbnail. A drop takes it from the page file once saved,
/// the other ways from the box, before anything is saved.
std::optional<Thumbnail> Basket::pageThumbnail(const Source& source, const QString& pageFile) {
    ImageBox& box = m_pageBox;
    if (source.addedBy == AddedBy::Drag) {
        savePage(box, pageFile);
        return loadThumbnail(pageFile, settings.basketBox(), settings.upright);
    }
    std::optional<Thumbnail> thumbnail;
    if (ignoringErrors(
            [&] { thumbnail = makeThumbnail(seenPicture(box, settings.upright), settings.basketBox()); }))
        savePage(box, pageFile);
    return thumbnail;
}

/// A document is noted once, however many of its pages fail.
void Basket::noteFailed(const QString& path) {
    if (m_failed.isEmpty() || m_failed.last() != path)
        m_failed << path;
}

// --- removing

void Basket::cmdPagesDelete() {
    ListView& pages = m_lists.lvPages;
    const std::vector<int> selected = pages.selectedRows();
    for (const int row : std::views::reverse(selected))
        pages.remove(row);
    showCount();
}

void Basket::cmdPagesNew() {
    stopAdding();
    empty();
    m_lists.sbMain.setPanel(QStringLiteral("queue"), tr("New Basket"));
    deletePageFiles(settings.programFolder);
}

void Basket::empty() {
    m_lists.lvPages.clear();
    m_lists.lvPages.attachImages(nullptr);
    m_lists.ilPages.clear();
    m_failed.clear();
}

// --- order

void Basket::MoveRowsTo(int target) {
    ListView& pages = m_lists.lvPages;
    const int focused = pages.focusedRow();
    if (target < 0 || target >= pages.count() || focused < 0)
        return;
    const std::vector<int> selected = pages.selectedRows();
    int place = target >= focused ? target + 1 : target;
    int newFocus = focused;
    std::vector<ListRow> moved;
    for (const int row : std::views::reverse(selected)) {
        moved.push_back(pages.row(row));
        pages.remove(row);
        place -= row < place ? 1 : 0;
    }
    for (size_t i = 0; i < moved.size(); ++i) {
        const int sourceRow = selected[i];
        if (sourceRow == focused)
            newFocus = place + int(i);
        pages.insert(place + int(i), std::move(moved[moved.size() - 1 - i]));
    }
    pages.setFocusedRow(pages.count() > newFocus ? newFocus : -1);
}

// --- status line

void Basket::showStatus(AddedBy addedBy, const QString& text) {
    m_lists.sbMain.setPanel(addedBy == AddedBy::Drag ? QStringLiteral("folder") : QStringLiteral("status"),
                            text);
}

void Basket::showCount() {
    m_lists.sbMain.setPanel(QStringLiteral("queue"), tr("%1 file(s) in basket").arg(m_lists.lvPages.count()));
}

} // namespace tarsel
