// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/Basket.h"

#include "base/ErrorTrap.h"
#include "base/EventLoop.h"
#include "collections/BasketFilling.h"
#include "collections/FolderView.h"
#include "collections/PictureFiles.h"
#include "collections/clsFileInfo.h"

#include <QScopeGuard>
#include <algorithm>
#include <ranges>

namespace tarsel {

QStringList basketHeaders() {
    return {Basket::tr("File Name"), Basket::tr("Resolution"), Basket::tr("Size"),
            Basket::tr("Type"),      Basket::tr("Path"),       Basket::tr("Description")};
}

Basket::Basket(CollectionLists lists, CollectionSettings initial) :
    settings(std::move(initial)), m_lists(lists) {}

Basket::~Basket() = default;

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

template <class Body>
void Basket::addTrapped(const char* routine, Body&& body) {
    std::ignore = trap(routine, [&] { body(Adding(*this)); });
    if (m_adding == 0 && m_thumbnailsAgain && !m_stopAdding)
        makeThumbnailsAgain();
}

void Basket::cmdAddToQueue_Click() {
    addTrapped("FrmMain.cmdAddToQueue_Click",
               [&](const Adding& adding) { addSelected(AddedBy::Button, adding); });
}

void Basket::AddToBasketByDrag() {
    addTrapped("AddToBasketByDrag", [&](const Adding& adding) { addSelected(AddedBy::Drag, adding); });
}

/// The rows as they are now: pending input and a listing in the background change the folder list.
void Basket::addSelected(AddedBy addedBy, const Adding& adding) {
    TrappingString = QStringLiteral("Adding selected files to basket!");
    m_failed.clear();
    const ListView& folder = m_lists.lvFolder;
    if (!folder.isEmpty()) {
        std::vector<std::pair<ListRow, Picture>> selected;
        for (const int row : folder.selectedRows())
            selected.emplace_back(folder.row(row), pictureAt(m_lists.ilFolder, folder.row(row).icon));
        const auto itemAt = [&](int index) -> std::optional<BasketItem> {
            const auto& [row, thumbnail] = selected[size_t(index)];
            if (m_lists.lvPages.findSubItem(BasketColumn::SourcePath, row.tag) >= 0)
                return std::nullopt;
            return basketItem(addedBy, row, thumbnail);
        };
        fill(int(selected.size()), itemAt, adding, Bar::Shown);
        m_lists.sbMain.setPanel(
            addedBy == AddedBy::Drag ? QStringLiteral("folder") : QStringLiteral("status"), {});
        showCount();
    }
    m_lists.lvPages.selectOnly(-1);
}

void Basket::subAddEntryToListView(const QString& path) {
    addTrapped("subAddEntryToListView", [&](const Adding& adding) {
        TrappingString = QStringLiteral("Opening image list from file!");
        fill(
            1, [&](int) { return basketItem(path); }, adding, Bar::Hidden);
    });
}

void Basket::addListedFiles(const QStringList& paths) {
    addTrapped("subAddEntryToListView", [&](const Adding& adding) {
        TrappingString = QStringLiteral("Opening image list from file!");
        const auto itemAt = [&](int index) {
            const QString& path = paths[index];
            return clsFileInfo::CheckIfFileExists(path) ? std::optional(basketItem(path)) : std::nullopt;
        };
        fill(int(paths.size()), itemAt, adding, Bar::Shown);
    });
}

/// Nothing from `itemAt` for a file that gets no row.
void Basket::fill(int count, const ItemMaker& itemAt, const Adding& adding, Bar bar) {
    constexpr int rowsAtOnce = 500; // so that input doesn't wait long
    BasketFilling filling(m_lists, startReading(), claimNumbers(count), count);
    const auto noteFailures = qScopeGuard([&] { // after an error too
        for (const QString& path : filling.failed())
            noteFailed(path);
    });
    int next = 0;
    const auto placeNext = [&] {
        std::vector<BasketItem> items;
        for (const int end = std::min(next + rowsAtOnce, count); next < end; ++next)
            if (std::optional<BasketItem> item = itemAt(next))
                items.push_back(*std::move(item));
        filling.place(items);
    };
    while (next < count || !filling.isComplete()) {
        if (bar == Bar::Shown)
            m_lists.pbQueue.start(count, next - filling.pending());
        if (!adding.goesOn())
            break;
        next < count ? placeNext() : filling.complete(visibleRows);
    }
}

/// A stopped reading ends when the file in work is done, which may take its time: nobody waits for that.
BasketReading& Basket::startReading() {
    std::erase_if(m_readings, [](const auto& reading) { return reading->hasEnded(); });
    m_readings.push_back(std::make_unique<BasketReading>(settings, readThumbnail));
    return *m_readings.back();
}

int Basket::claimNumbers(int count) {
    return std::exchange(m_nextNumber, m_nextNumber + count);
}

void Basket::makeThumbnailsAgain() {
    if (m_lists.lvPages.isEmpty() || !settings.thumbnails)
        return;
    m_thumbnailsAgain = true;
    if (m_adding > 0)
        return;
    std::ignore = trap("Basket.makeThumbnailsAgain", [&] {
        const Adding adding(*this);
        while (std::exchange(m_thumbnailsAgain, false))
            renewThumbnails(adding);
    });
}

void Basket::renewThumbnails(const Adding& adding) {
    ListView& list = m_lists.lvPages;
    const int count = list.count();
    BasketReading& reading = startReading();
    PendingRows rows(list, reading, claimNumbers(count), count);
    std::vector<BasketSource> sources;
    for (int row = 0; row < count; ++row)
        sources.push_back({AddedBy::Button, list.row(row).tag, list.row(row).text, 1, {}, 0});
    rows.renew(sources);
    while (!rows.isEmpty() && adding.goesOn()) {
        for (const BasketReading::Numbered& found : rows.fetch(visibleRows)) {
            const int row = rows.rowOf(found.number);
            rows.end(found.number);
            if (row >= 0 && found.content.thumbnail)
                showAgain(row, *found.content.thumbnail);
        }
        m_lists.pbQueue.start(count, count - rows.count());
    }
    reading.stop();
}

void Basket::showAgain(int row, const Thumbnail& thumbnail) {
    int icon = m_lists.lvPages.row(row).icon;
    if (icon < 0)
        icon = addIcon(m_lists.ilPages, thumbnail);
    else
        m_lists.ilPages.set(icon, QVariant::fromValue(thumbnail.picture));
    m_lists.lvPages.setIcon(row, icon);
}

/// A file is noted once in a row.
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

void Basket::showCount() {
    m_lists.sbMain.setPanel(QStringLiteral("queue"), tr("%1 file(s) in basket").arg(m_lists.lvPages.count()));
}

} // namespace tarsel
