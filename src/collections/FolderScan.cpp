// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/FolderScan.h"

#include "base/FailureOf.h"
#include "base/FileNames.h"
#include "collections/PictureFiles.h"

#include <algorithm>
#include <iterator>

namespace tarsel {

FolderScan::FolderScan(Request request, std::function<void()> wake) :
    m_request(std::move(request)), m_wake(std::move(wake)),
    m_contents([this](int number) { completeRow(number); }), m_lister([this] { listRows(); }) {}

FolderScan::~FolderScan() {
    stop();
    m_lister.join();
}

void FolderScan::stop() {
    m_contents.stop();
}

bool FolderScan::hasEnded() const {
    const std::lock_guard lock(m_mutex);
    return !m_isListing && m_contents.hasEnded();
}

int FolderScan::count() const {
    const std::lock_guard lock(m_mutex);
    return int(m_names.size());
}

/// An exception that leaves a thread would end the program.
void FolderScan::deliver(std::optional<TrappedError> failure) {
    if (!failure)
        return;
    const std::lock_guard lock(m_mutex);
    m_waiting.failure = std::move(failure);
    wakeOwner();
}

// --- rows

void FolderScan::listRows() {
    deliver(failureOf([this] { m_request.known.isEmpty() ? makeRows() : takeKnownRows(); }));
    const std::lock_guard lock(m_mutex);
    m_isListing = false;
    m_waiting.allRows = true;
    wakeOwner();
}

/// Rows are passed on in growing batches: an addition costs time proportional to the length of the list, and
/// the first rows should appear at once. Batches are limited so that none of them blocks the window.
void FolderScan::makeRows() {
    constexpr size_t firstRows = 100;
    constexpr size_t growth = 8;
    constexpr size_t maxRows = 6400;
    const QStringList names = pictureFiles(m_request.folder, m_request.alsoListed);
    setNames(names);
    clsFileInfo info = m_request.info;
    size_t enough = firstRows;
    std::vector<ListRow> made;
    for (int number = 0; number < int(names.size()) && !m_contents.hasStopped(); ++number) {
        made.push_back(folderRow(m_request.folder, names[number], info, m_request.settings));
        made.back().number = number;
        if (made.size() < enough && number + 1 < int(names.size()))
            continue;
        enough = std::min(enough * growth, maxRows);
        passOn(std::exchange(made, {}));
    }
}

void FolderScan::passOn(std::vector<ListRow> rows) {
    std::vector<int> numbers;
    for (const ListRow& row : rows)
        numbers.push_back(row.number);
    {
        const std::lock_guard lock(m_mutex);
        std::move(rows.begin(), rows.end(), std::back_inserter(m_waiting.rows));
        wakeOwner();
    }
    m_contents.add(numbers);
}

void FolderScan::takeKnownRows() {
    setNames(m_request.known);
    std::vector<int> numbers;
    for (int number = 0; number < int(m_request.known.size()); ++number)
        if (!m_request.known[number].isEmpty())
            numbers.push_back(number);
    m_contents.add(numbers);
}

void FolderScan::setNames(const QStringList& names) {
    const std::lock_guard lock(m_mutex);
    m_names = names;
    m_settings = affordableSettings(names.size() - names.count(QString()));
}

CollectionSettings FolderScan::affordableSettings(qsizetype rows) const {
    CollectionSettings settings = m_request.settings;
    settings.pixelRatio *= settings.affordableRatio(int(rows));
    return settings;
}

// --- what completes them

void FolderScan::completeRow(int number) {
    deliver(failureOf([&] {
        QString path;
        CollectionSettings settings;
        {
            const std::lock_guard lock(m_mutex);
            path = joinedPath(m_request.folder, m_names.at(number));
            settings = m_settings;
        }
        NumberedContent completed{number, readRowContent(path, settings, m_request.readThumbnail)};
        const std::lock_guard lock(m_mutex);
        m_waiting.contents.push_back(std::move(completed));
        wakeOwner();
    }));
}

// --- the owner's side

namespace {

/// Takes the first elements out of a list.
template <class Element>
std::vector<Element> takeFirst(std::vector<Element>& list, size_t count) {
    const auto end = list.begin() + std::ptrdiff_t(count);
    std::vector<Element> taken(std::make_move_iterator(list.begin()), std::make_move_iterator(end));
    list.erase(list.begin(), end);
    return taken;
}

} // namespace

void FolderScan::wakeOwner() {
    if (!std::exchange(m_woken, true))
        m_wake();
}

FolderScan::Delivery FolderScan::fetch(Limits most) {
    const std::lock_guard lock(m_mutex);
    m_woken = false;
    Delivery delivery;
    if (m_waiting.rows.size() > most.rows) {
        delivery.rows = takeFirst(m_waiting.rows, most.rows);
        wakeOwner();
    } else if (m_waiting.contents.size() > most.contents) {
        delivery = std::exchange(m_waiting, {});
        m_waiting.contents = std::move(delivery.contents);
        delivery.contents = takeFirst(m_waiting.contents, most.contents);
        wakeOwner();
    } else {
        delivery = std::exchange(m_waiting, {});
    }
    return delivery;
}

} // namespace tarsel
