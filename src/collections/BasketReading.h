// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/BasketSource.h"
#include "collections/NumberedWork.h"

#include <chrono>
#include <deque>
#include <map>

namespace tarsel {

/// Reads sources on threads of its own. The owner fetches what was found; page files of what it didn't fetch
/// are removed.
class BasketReading {
public:
    struct Numbered {
        int number;
        BasketContent content;
    };
    BasketReading(CollectionSettings settings, ThumbnailReader readThumbnail);
    ~BasketReading(); ///< stops, and waits for what is in work
    BasketReading(const BasketReading&) = delete;
    BasketReading& operator=(const BasketReading&) = delete;

    void add(std::map<int, BasketSource> sources); ///< by number
    void drop(int number);                         ///< nothing of it is wanted any more
    void prefer(std::vector<int> numbers) { m_work.prefer(std::move(numbers)); }
    void stop() { m_work.stop(); }
    bool hasEnded() const { return m_work.hasEnded(); }
    /// Waits that long at most. Up to 100 pictures, or up to the first page of a document.
    std::vector<Numbered> fetchWithin(std::chrono::milliseconds time);

private:
    void read(int number);
    bool take(int number, BasketContent content);

    const CollectionSettings m_settings;
    const ThumbnailReader m_readThumbnail;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::map<int, BasketSource> m_sources; ///< not yet read to their ends
    std::deque<Numbered> m_found;
    NumberedWork m_work; // last, so that it ends first
};

} // namespace tarsel
