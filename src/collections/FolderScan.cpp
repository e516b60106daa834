// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/FolderScan.h"

#include "base/Stop.h"
#include "collections/PictureFiles.h"

#include <algorithm>
#include <iterator>
#include <new>

namespace tarsel {

namespace {

int completers() {
    return int(std::clamp(std::thread::hardware_concurrency(), 1u, 4u));
}

} // namespace

FolderScan::FolderScan(Request request, std::function<void()> wake) :
    m_request(std::move(request)), m_wake(std::move(wake)), m_running(completers() + 1) {
    const auto run = [this](void (FolderScan::*work)()) {
        m_threads.emplace_back([this, work] {
            (this->*work)();
            const std::lock_guard lock(m_mutex);
            --m_running;
        });
    };
    run(&FolderScan::listRows);
    for (int i = 0; i < completers(); ++i)
        run(&FolderScan::completeRows);
}

FolderScan::~FolderScan() {
    stop();
    for (std::thread& thread : m_threads)
        thread.join();
}

void FolderScan::stop() {
    {
        const std::lock_guard lock(m_mutex);
        m_stop.request_stop();
    }
    m_changed.notify_all();
}

bool FolderScan::hasEnded() const {
    const std::lock_guard lock(m_mutex);
    return m_running == 0;
}

int FolderScan::count() const {
    const std::lock_guard lock(m_mutex);
    return int(m_names.size());
}

// --- failures

/// An exception that leaves a thread would end the program.
template <class Work>
void FolderScan::deliveringFailure(Work&& work) {
    try {
        work();
    } catch (const TrappedError& error) {
        deliver(error);
    } catch (const std::bad_alloc&) {
        deliver({ErrorNumber::OutOfMemory, errorText(ErrorNumber::OutOfMemory)});
    } catch (const std::exception& error) {
        deliver({ErrorNumber::InvalidCall, QString::fromUtf8(error.what())});
    }
}

void FolderScan::deliver(TrappedError failure) {
    const std::lock_guard lock(m_mutex);
    m_waiting.failure = std::move(failure);
    wakeOwner();
}

// --- rows

void FolderScan::listRows() {
    deliveringFailure([this] { m_request.known.isEmpty() ? makeRows() : takeKnownRows(); });
    const std::lock_guard lock(m_mutex);
    m_waiting.allRows = true;
    wakeOwner();
}

/// Rows are passed on in growing numbers: a list pays for each addition by its length, and the first rows are
/// to be there at once. Not too many, so that no addition holds up the window.
void FolderScan::makeRows() {
    constexpr size_t firstRows = 100;
    constexpr size_t growth = 8;
    constexpr size_t mostRows = 6400;
    const std::stop_token stop = m_stop.get_token();
    const QStringList names = pictureFiles(m_request.folder);
    setNames(names);
    clsFileInfo info = m_request.info;
    size_t enough = firstRows;
    for (int number = 0; number < int(names.size()) && !stop.stop_requested(); ++number) {
        ListRow row = folderRow(m_request.folder, names[number], info, m_request.settings.longFileSize);
        row.number = number;
        const std::lock_guard lock(m_mutex);
        m_made.push_back(std::move(row));
        if (m_made.size() < enough && number + 1 < int(names.size()))
            continue;
        enough = std::min(enough * growth, mostRows);
        for (const ListRow& made : m_made)
            m_isPending[size_t(made.number)] = true;
        m_handedOn = number + 1;
        std::move(m_made.begin(), m_made.end(), std::back_inserter(m_waiting.rows));
        m_made.clear();
        m_changed.notify_all();
        wakeOwner();
    }
}

void FolderScan::takeKnownRows() {
    setNames(m_request.known);
    const std::lock_guard lock(m_mutex);
    for (int number = 0; number < int(m_names.size()); ++number)
        m_isPending[size_t(number)] = !m_names[number].isEmpty();
    m_handedOn = int(m_names.size());
    m_changed.notify_all();
}

void FolderScan::setNames(const QStringList& names) {
    const std::lock_guard lock(m_mutex);
    m_names = names;
    m_isPending.resize(size_t(names.size()), false);
}

// --- what completes them

void FolderScan::completeRows() {
    const StopScope scope(m_stop.get_token()); // a stop also ends the wait for a slow decoder
    deliveringFailure([this] {
        while (const std::optional<int> number = takeNumber()) {
            const QString path = joinedPath(m_request.folder, m_names.at(*number));
            NumberedContent completed{*number, m_request.readContent(path, m_request.settings)};
            const std::lock_guard lock(m_mutex);
            m_waiting.contents.push_back(std::move(completed));
            wakeOwner();
        }
    });
}

/// Waits for a row to complete. Nothing after a stop.
std::optional<int> FolderScan::takeNumber() {
    std::unique_lock lock(m_mutex);
    for (;;) {
        if (m_stop.stop_requested())
            return std::nullopt;
        while (!m_preferred.empty() && !isPending(m_preferred.back()))
            m_preferred.pop_back();
        while (m_firstPending < m_handedOn && !isPending(m_firstPending))
            ++m_firstPending;
        const int number = m_preferred.empty() ? m_firstPending : m_preferred.back();
        if (isPending(number)) {
            m_isPending[size_t(number)] = false;
            return number;
        }
        m_changed.wait(lock);
    }
}

bool FolderScan::isPending(int number) const {
    return number >= 0 && size_t(number) < m_isPending.size() && m_isPending[size_t(number)];
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

void FolderScan::prefer(std::vector<int> numbers) {
    std::reverse(numbers.begin(), numbers.end());
    const std::lock_guard lock(m_mutex);
    m_preferred = std::move(numbers);
}

} // namespace tarsel
