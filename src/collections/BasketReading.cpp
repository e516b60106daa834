// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/BasketReading.h"

namespace tarsel {

BasketReading::BasketReading(CollectionSettings settings, ThumbnailReader readThumbnail) :
    m_settings(std::move(settings)), m_readThumbnail(std::move(readThumbnail)),
    m_work([this](int number) { read(number); }) {}

BasketReading::~BasketReading() {
    stop();
    for (const Numbered& found : m_found) // nothing is added after a stop
        deletePageFile(found.content.pageFile);
}

void BasketReading::add(std::map<int, BasketSource> sources) {
    std::vector<int> numbers;
    for (const auto& each : sources)
        numbers.push_back(each.first);
    {
        const std::lock_guard lock(m_mutex);
        m_sources.merge(sources);
    }
    m_work.add(numbers);
}

void BasketReading::drop(int number) {
    m_work.drop(number);
    const std::lock_guard lock(m_mutex);
    m_sources.erase(number);
}

void BasketReading::read(int number) {
    std::optional<BasketSource> source;
    {
        const std::lock_guard lock(m_mutex);
        if (const auto found = m_sources.find(number); found != m_sources.end())
            source = found->second;
    }
    if (source)
        readBasketSource(*source, m_settings, m_readThumbnail,
                         [&](BasketContent content) { return take(number, std::move(content)); });
}

bool BasketReading::take(int number, BasketContent content) {
    {
        const std::lock_guard lock(m_mutex);
        const auto source = m_sources.find(number);
        if (m_work.hasStopped() || source == m_sources.end())
            return false;
        if (content.isLast)
            m_sources.erase(source);
        m_found.push_back({number, std::move(content)});
    }
    m_changed.notify_one();
    return true;
}

std::vector<BasketReading::Numbered> BasketReading::fetchWithin(std::chrono::milliseconds time) {
    constexpr size_t most = 100;
    std::unique_lock lock(m_mutex);
    m_changed.wait_for(lock, time, [this] { return !m_found.empty(); });
    std::vector<Numbered> fetched;
    while (!m_found.empty() && fetched.size() < most) {
        fetched.push_back(std::move(m_found.front()));
        m_found.pop_front();
        if (fetched.back().content.page > 0)
            break;
    }
    return fetched;
}

} // namespace tarsel
