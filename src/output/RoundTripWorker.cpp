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
    }),
    m_partWork([this](const Request& request, const std::stop_token& stop) {
        const StopScope scope(stop);
        ignoringErrors([&] { makePart(m_otherPart, request); });
    }) {}

void RoundTripWorker::request(Request request) {
    m_partWork.cancel();
    m_work.request(std::move(request));
}

void RoundTripWorker::cancel() {
    m_partWork.cancel();
    m_work.cancel();
}

void RoundTripWorker::work(const Request& request) {
    const std::optional<RoundTripResult> result = request.made ? request.made : make(request);
    if (result)
        measure(request, *result);
}

std::optional<RoundTripResult> RoundTripWorker::make(const Request& request) {
    makePart(m_visiblePart, request);
    const KeptReductionsScope scope(m_reductions);
    Answer answer{.number = request.number};
    answer.failure = failureOf([&] { answer.result = roundTrip(m_source, request.settings); });
    raiseIfStopped();
    std::optional<RoundTripResult> result = answer.result;
    m_deliver(std::move(answer));
    return result;
}

void RoundTripWorker::makePart(VisiblePart& maker, const Request& request) {
    std::optional<PreviewPicture> part;
    ignoringErrors([&] { part = maker.roundTrip(m_source, request.settings, request.visible); });
    raiseIfStopped();
    if (part)
        m_deliver({.number = request.number, .area = request.visible, .part = std::move(part)});
}

void RoundTripWorker::measure(const Request& request, const RoundTripResult& result) {
    const std::optional<operations::Similarity> similarity = similarityOf(m_source, result);
    raiseIfStopped();
    if (similarity)
        m_deliver({.number = request.number, .similarity = similarity});
}

} // namespace tarsel
