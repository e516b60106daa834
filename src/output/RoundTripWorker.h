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
        VisibleArea area{};                   ///< of the part
        std::optional<PreviewPicture> part{}; ///< what is seen of a large picture; the result follows
        std::optional<RoundTripResult> result{};
        std::optional<TrappedError> failure{};
        std::optional<operations::Similarity> similarity{}; ///< of the result delivered before
    };
    using Deliver = std::function<void(Answer)>;

    /// `deliver` is called on the worker's thread.
    RoundTripWorker(RoundTripSource source, Deliver deliver);

    /// Replaces what waits, and stops what is in work, which delivers nothing then.
    void request(Request request);
    /// Makes the part of another visible area, while the result of the request is in work.
    void requestPart(Request request) { m_partWork.request(std::move(request)); }
    void cancel();

private:
    void work(const Request& request);
    std::optional<RoundTripResult> make(const Request& request);
    void makePart(VisiblePart& maker, const Request& request);
    void measure(const Request& request, const RoundTripResult& result);

    const RoundTripSource m_source;
    const Deliver m_deliver;
    // They belong to the thread of m_work, and the other part to that of m_partWork.
    VisiblePart m_visiblePart;
    KeptReductions m_reductions;
    VisiblePart m_otherPart;

    NewestWork<Request> m_work; // these last, so that they end first
    NewestWork<Request> m_partWork;
};

} // namespace tarsel
