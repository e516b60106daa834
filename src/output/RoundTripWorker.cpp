// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/RoundTripWorker.h"

#include "base/FailureOf.h"
#include "base/IgnoringErrors.h"
#include "base/Spreading.h"
#include "base/Stop.h"

#include <utility>

namespace tarsel {

RoundTripWorker::RoundTripWorker(RoundTripSource source, Deliver deliver) :
    m_source(std::move(source)), m_deliver(std::move(deliver)),
    m_work([this](const Request& request, const std::stop_token& stop) {
        const SpreadingScope spreading;
        const StopScope scope(stop);
        ignoringErrors([&] { work(request); });
    }) {}

void RoundTripWorker::work(const Request& request) {
    const std::optional<RoundTripResult> result = request.made ? request.made : make(request);
    if (result)
        measure(request, *result);
}

std::optional<RoundTripResult> RoundTripWorker::make(const Request& request) {
    std::optional<PreviewPicture> part;
    ignoringErrors([&] { part = m_visiblePart.roundTrip(m_source, request.settings, request.visible); });
    raiseIfStopped();
    if (part)
        m_deliver({.number = request.number, .part = std::move(part)});
    const KeptReductionsScope scope(m_reductions);
    Answer answer{.number = request.number};
    answer.failure = failureOf([&] { answer.result = roundTrip(m_source, request.settings); });
    raiseIfStopped();
    std::optional<RoundTripResult> result = answer.result;
    m_deliver(std::move(answer));
    return result;
}

void RoundTripWorker::measure(const Request& request, const RoundTripResult& result) {
    const std::optional<operations::Similarity> similarity = similarityOf(m_source, result);
    raiseIfStopped();
    if (similarity)
        m_deliver({.number = request.number, .similarity = similarity});
}

} // namespace tarsel
