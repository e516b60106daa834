// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/Basket.h"

#include "base/AcquiredFiles.h"
#include "base/ErrorSubject.h"
#include "base/ErrorTrap.h"
#include "base/EventLoop.h"
#include "collections/BasketFilling.h"
#include "collections/FolderView.h"
#include "collections/OfferedFiles.h"
#include "collections/PageFiles.h"
#include "collections/PictureFiles.h"
#include "collections/UnwaitedWork.h"
#include "collections/clsFileInfo.h"

#include <QDeadlineTimer>
#include <QScopeGuard>
#include <algorithm>

namespace tarsel {

namespace {

/// The size text of each file follows the flag of the one before, also after this.
FileFactsReading startFacts(const QStringList& paths) {
    const clsFileInfo before = FileInfo();
    FileInfo().fSizeFormated(0);
    return {paths, before};
}

} // namespace

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
    reportUnwritten(routine);
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

/// One report for all documents: a full disk would refuse each of hundreds.
void Basket::reportUnwritten(const char* routine) {
    constexpr size_t mostNames = 10;
    const auto unwritten = std::exchange(m_unwritten, {});
    if (unwritten.empty())
        return;
    QStringList names;
    for (size_t i = 0; i < std::min(unwritten.size(), mostNames); ++i)
        names << unwritten[i].first;
    if (unwritten.size() > mostNames)
        names << tr("and %1 more").arg(unwritten.size() - mostNames);
    const ErrorSubject subject(names.join(QLatin1Char('\n')));
    std::ignore = trap(routine, [&] { throw unwritten.front().second; });
}

/// The rows as they are now: pending input and a listing in the background change the folder list. Each with
/// its own thumbnail, whichever one it shows after a sort and a change of view.
void Basket::addSelected(AddedBy addedBy, const Adding& adding) {
    const ListView& folder = m_lists.lvFolder;
    std::vector<std::pair<ListRow, Picture>> selected;
    for (const int row : folder.selectedRows())
        selected.emplace_back(folder.row(row), pictureAt(m_lists.ilFolder, folder.row(row).number));
    const auto itemAt = [&](int index) -> std::optional<BasketItem> {
        const auto [row, thumbnail] = std::exchange(selected[size_t(index)], {}); // not all at the end
        if (isListed(row.tag))
            return std::nullopt;
        return basketItem(addedBy, row, thumbnail);
    };
    if (folder.isEmpty())
        beginAdding();
    else
        fillByUser(addedBy == AddedBy::Drag ? QStringLiteral("folder") : QStringLiteral("status"),
                   {int(selected.size()), itemAt}, adding);
}

void Basket::addOfferedFiles(const QList<QUrl>& files) {
    addTrapped("AddToBasketByDrag", [&](const Adding& adding) {
        std::optional<OfferedFiles> offered = readOffered(files, adding);
        if (!offered)
            return;
        FileFactsReading facts = startFacts(offered->files);
        int present = 0;
        const auto itemAt = [&](int index) -> std::optional<BasketItem> {
            if (!isListed(offered->files[index]))
                return basketItem(facts.take(index), AddedBy::Drag);
            ++present;
            return std::nullopt;
        };
        const auto known = [&](int next) { return facts.countBeyond(next); };
        fillByUser(QStringLiteral("status"), {int(offered->files.size()), itemAt, known}, adding);
        offered->unreadable += int(m_failed.size());
        m_lists.sbMain.setPanel(QStringLiteral("status"), skippedText(*offered, present));
    });
}

/// Nothing after a stop.
std::optional<OfferedFiles> Basket::readOffered(const QList<QUrl>& files, const Adding& adding) const {
    std::stop_source gaveUp;
    auto reading = startUnwaited([files, token = gaveUp.get_token()] { return offeredFiles(files, token); });
    while (reading.wait_for(std::chrono::milliseconds(10)) != std::future_status::ready) {
        if (adding.goesOn())
            continue;
        gaveUp.request_stop();
        return std::nullopt;
    }
    return reading.get();
}

bool Basket::isListed(const QString& path) const {
    return m_lists.lvPages.findSubItem(BasketColumn::SourcePath, path) >= 0;
}

void Basket::beginAdding() {
    TrappingString = QStringLiteral("Adding selected files to basket!");
    m_failed.clear();
    m_lists.lvPages.selectOnly(-1); // not at the end: the user selects rows while files are read
}

void Basket::fillByUser(const QString& panel, const Items& items, const Adding& adding) {
    beginAdding();
    const auto atEnd = qScopeGuard([&] { // of a run that ends in an error, too
        m_lists.sbMain.setPanel(panel, {});
        showCountAtEnd();
    });
    fill(items, adding, {.panel = panel, .bar = true, .count = true});
}

void Basket::subAddEntryToListView(const QString& path) {
    addTrapped("subAddEntryToListView", [&](const Adding& adding) {
        TrappingString = QStringLiteral("Opening image list from file!");
        FileFactsReading facts = startFacts({path});
        const auto known = [&](int next) { return facts.countBeyond(next); };
        fill({1, [&](int index) { return basketItem(facts.take(index)); }, known}, adding, {.count = true});
    });
}

bool Basket::addListedFiles(const QStringList& paths) {
    bool complete = false;
    addTrapped("subAddEntryToListView", [&](const Adding& adding) {
        TrappingString = QStringLiteral("Opening image list from file!");
        FileFactsReading facts = startFacts(paths);
        const auto itemAt = [&](int index) {
            const FileFacts file = facts.take(index);
            return file.isReadable ? std::optional(basketItem(file)) : std::nullopt;
        };
        const auto known = [&](int next) { return facts.countBeyond(next); };
        const auto atEnd = qScopeGuard([&] { showCountAtEnd(); });
        complete = fill({int(paths.size()), itemAt, known}, adding, {.bar = true, .count = true});
    });
    return complete;
}

/// False after a stop.
bool Basket::fill(const Items& items, const Adding& adding, Shown shown) {
    constexpr int fewRows = 20, rowsAtOnce = 500; // so that input doesn't wait long
    const int count = items.count;
    BasketFilling filling(m_lists, startReading(), claimNumbers(count), count, shown.panel);
    QStringList perhapsAcquired;
    const auto atEnd = qScopeGuard([&] {
        for (const QString& path : filling.failed())
            noteFailed(path);
        std::ranges::move(filling.unwritten(), std::back_inserter(m_unwritten));
        acquiredFiles::listAgain(temporaryFolder(settings.programFolder), perhapsAcquired);
    });
    int next = 0;
    const auto placeUpTo = [&](int known) {
        std::vector<BasketItem> placed;
        const QDeadlineTimer slice(10);
        const int begin = next;
        const int end = std::min({begin + rowsAtOnce, known, count});
        for (; next < end && (next < begin + fewRows || !slice.hasExpired()); ++next)
            if (std::optional<BasketItem> item = items.at(next)) {
                if (item->source.path.contains(QLatin1String("/Temp"))) // a quick look at many paths
                    perhapsAcquired << item->source.path;
                placed.push_back(*std::move(item));
            }
        filling.place(placed);
    };
    while (next < count || !filling.isComplete()) {
        if (shown.bar && !filling.showsPages())
            m_lists.pbQueue.start(count, next - filling.pending());
        if (shown.count && next > 0)
            showCount();
        if (!adding.goesOn())
            return false;
        const int known = next < count ? items.known(next) : 0;
        known > next ? placeUpTo(known) : filling.complete(visibleRows);
    }
    return true;
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
    constexpr int rowsAtOnce = 2000; // so that input doesn't wait long
    ListView& list = m_lists.lvPages;
    const int count = list.count();
    BasketReading& reading = startReading();
    PendingRows rows(list, reading, claimNumbers(count), count);
    rows.claimAll();
    int next = 0;
    while ((next < count || !rows.isEmpty()) && adding.goesOn()) {
        if (next < count) {
            rows.readAgain(next, std::min(rowsAtOnce, count - next));
            next += rowsAtOnce;
            continue;
        }
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
    m_history.remove(selected, settings.programFolder);
    if (!selected.empty() && !pages.isEmpty())
        pages.selectOnly(std::min(selected.front(), pages.count() - 1));
    showCount();
}

void Basket::cmdPagesNew() {
    stopAdding();
    m_failed.clear();
    m_history.beginNewBasket(settings.programFolder);
    m_lists.sbMain.setPanel(QStringLiteral("queue"), tr("New Basket"));
}

void Basket::empty() {
    m_history.beginOpenBasket();
    m_lists.lvPages.attachImages(nullptr);
    m_lists.ilPages.clear();
    m_failed.clear();
    showCount();
}

void Basket::await(const std::vector<BasketEntry>& entries) {
    awaited().clear();
    QString last, after;
    for (const BasketEntry& entry : entries) {
        if (entry.path != last)
            after = std::exchange(last, entry.path);
        awaited().push_back({entry, after});
    }
}

void Basket::undo() {
    m_history.undo();
    showCount();
}

void Basket::redo() {
    const bool isNew = m_history.redoable() == BasketHistory::Kind::NewBasket;
    if (isNew)
        stopAdding();
    m_history.redo();
    isNew ? m_lists.sbMain.setPanel(QStringLiteral("queue"), tr("New Basket")) : showCount();
}

// --- order

void Basket::MoveRowsTo(int target) {
    ListView& pages = m_lists.lvPages;
    const int focused = pages.focusedRow();
    if (target >= 0 && target < pages.count() && focused >= 0)
        moveSelectedTo(target >= focused ? target + 1 : target);
}

void Basket::moveSelected(int step) {
    const std::vector<int> moved = m_lists.lvPages.selectedRows();
    if (!moved.empty())
        moveSelectedTo(step < 0 ? std::max(0, moved.front() - 1)
                                : std::min(moved.back() + 2, m_lists.lvPages.count()));
}

/// Before the row that is at `place` now.
void Basket::moveSelectedTo(int place) {
    ListView& pages = m_lists.lvPages;
    const std::vector<int> moved = pages.selectedRows();
    std::vector<int> order;
    for (int row = 0; row <= pages.count(); ++row) {
        if (row == place)
            order.insert(order.end(), moved.begin(), moved.end());
        if (row < pages.count() && !pages.isSelected(row))
            order.push_back(row);
    }
    if (!std::ranges::is_sorted(order)) // else nothing moves, and there is nothing to undo
        pages.reorder(order);
}

// --- status line

/// Not when a new basket ended the adding, which says so there.
void Basket::showCountAtEnd() {
    if (!m_stopAdding || !m_lists.lvPages.isEmpty())
        showCount();
}

void Basket::showCount() {
    m_lists.sbMain.setPanel(QStringLiteral("queue"), tr("%1 file(s) in basket").arg(m_lists.lvPages.count()));
}

} // namespace tarsel
