// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/TrappedError.h"
#include "codecs/KeptReductions.h"
#include "collections/NewestWork.h"
#include "output/RoundTrip.h"
#include "output/VisiblePart.h"

#include <functional>
#include <optional>

namespace tarsel {

/// Makes round trips on a thread of its own. One request waits at most: the newest.
class RoundTripWorker {
public:
    struct Request {
        quint64 number = 0; ///< comes back with the answers
        RoundTripSettings settings;
        VisibleArea visible;
        std::optional<RoundTripResult> made = {}; ///< is measured only
    };
    /// One of the four.
    struct Answer {
        quint64 number = 0;
        std::optional<PreviewPicture> part{}; ///< what is seen of a large picture; the result follows
        std::optional<RoundTripResult> result{};
        std::optional<TrappedError> failure{};
        std::optional<operations::Similarity> similarity{}; ///< of the result delivered before
    };
    using Deliver = std::function<void(Answer)>;

    /// `deliver` is called on the worker's thread.
    RoundTripWorker(RoundTripSource source, Deliver deliver);

    /// Replaces what waits, and stops what is in work, which delivers nothing then.
    void request(Request request) { m_work.request(std::move(request)); }
    void cancel() { m_work.cancel(); }

private:
    void work(const Request& request);
    std::optional<RoundTripResult> make(const Request& request);
    void measure(const Request& request, const RoundTripResult& result);

    const RoundTripSource m_source;
    const Deliver m_deliver;
    // They belong to the thread.
    VisiblePart m_visiblePart;
    KeptReductions m_reductions;

    NewestWork<Request> m_work; // last, so that it ends first
};

} // namespace tarsel
