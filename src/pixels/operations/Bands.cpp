// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/Bands.h"

#include "base/FailureOf.h"
#include "base/Spreading.h"
#include "base/Stop.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>

namespace tarsel::operations {

namespace {

/// More bands than threads, so that one which loses its processor for a moment does not make the others wait.
constexpr int bandsPerThread = 4;

/// Bands that are handed out one after the other, and the first error.
class BandQueue {
public:
    BandQueue(const std::vector<Band>& bands, const std::function<void(const Band&)>& work) :
        m_bands(bands), m_work(work) {}

    /// Works until no band is left.
    void run() {
        const StopScope scope(m_stop);
        const auto failure = failureOf([this] {
            for (std::size_t i = m_next++; i < m_bands.size(); i = m_next++) {
                raiseIfStopped();
                m_work(m_bands[i]);
            }
        });
        if (failure)
            reportFailure(*failure);
    }

    void raiseFailure() const {
        if (m_failure)
            throw TrappedError(*m_failure);
    }

private:
    void reportFailure(const TrappedError& error) {
        m_next = m_bands.size();
        const std::lock_guard lock(m_mutex);
        if (!m_failure)
            m_failure = error;
    }

    const std::vector<Band>& m_bands;
    const std::function<void(const Band&)>& m_work;
    const std::stop_token m_stop = currentStop();
    std::atomic<std::size_t> m_next = 0;
    std::mutex m_mutex;
    std::optional<TrappedError> m_failure;
};

void startHelpers(std::vector<std::jthread>& helpers, std::size_t count, BandQueue& queue) {
    try {
        while (helpers.size() < count)
            helpers.emplace_back([&queue] { queue.run(); });
    } catch (const std::system_error&) { // the threads that have started do all of the work
    }
}

} // namespace

std::vector<Band> bandsOf(int rows, std::int64_t pixels) {
    const Spreading spreading = currentSpreading();
    const bool isSpread = spreading.threads > 1 && pixels >= spreading.minPixels;
    const int count = isSpread ? std::clamp(spreading.threads * bandsPerThread, 1, std::max(1, rows)) : 1;
    const auto border = [=](int index) { return int(std::int64_t(rows) * index / count); };
    std::vector<Band> bands;
    for (int i = 0; i < count; ++i)
        bands.push_back({i, border(i), border(i + 1)});
    return bands;
}

void forBands(const std::vector<Band>& bands, const std::function<void(const Band&)>& work) {
    if (bands.size() == 1)
        return work(bands.front());
    BandQueue queue(bands, work);
    {
        std::vector<std::jthread> helpers;
        const auto most = std::min(std::size_t(currentSpreading().threads), bands.size());
        startHelpers(helpers, most - 1, queue);
        queue.run();
    }
    queue.raiseFailure();
}

BandSource::BandSource(ConstPixelView source, const std::vector<Band>& bands, int margin) :
    m_source(source), m_margin(margin) {
    const auto size = std::size_t(source.width) * std::size_t(source.channels);
    for (std::size_t i = 1; i < bands.size(); ++i) {
        Picture& copies = m_borders.emplace_back(source.width, 2 * margin, source.channels);
        const PixelView rows = copies.edit();
        for (int k = 0; k < 2 * margin; ++k) {
            const int y = std::clamp(bands[i].begin - margin + k, 0, source.height - 1);
            std::memcpy(rows.row(k), source.row(y), size);
        }
    }
}

const std::uint8_t* BandSource::row(const Band& band, int y) const {
    if (y >= band.begin && y < band.end)
        return m_source.row(y);
    const bool isAbove = y < band.begin;
    const int border = isAbove ? band.begin : band.end;
    return m_borders[std::size_t(isAbove ? band.index - 1 : band.index)].view().row(y - border + m_margin);
}

} // namespace tarsel::operations
