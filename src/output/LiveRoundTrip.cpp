// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/LiveRoundTrip.h"

#include "base/FailureOf.h"
#include "base/SafeFileWriter.h"
#include "base/Stop.h"
#include "imaging/DisplayColors.h"

#include <QDir>
#include <algorithm>
#include <utility>

namespace tarsel {

namespace {

constexpr qsizetype writtenAtOnce = 1 << 20;

PreviewPicture shownOf(const RoundTripResult& result) {
    PreviewPicture shown;
    shown.picture = result.decoded;
    shown.size = {result.decoded.width(), result.decoded.height()};
    shown.iccProfile = visibleProfile(result.iccProfile);
    return shown;
}

} // namespace

LiveRoundTrip::LiveRoundTrip(RoundTripSource source, QString folder) :
    m_folder(std::move(folder)),
    m_files([this](const LeftFile& file, const std::stop_token& stop) { leaveFile(file, stop); }),
    m_worker(std::move(source), [this](RoundTripWorker::Answer answer) {
        QMetaObject::invokeMethod(
            this, [this, answer = std::move(answer)]() mutable { take(std::move(answer)); },
            Qt::QueuedConnection);
    }) {}

void LiveRoundTrip::want(const RoundTripSettings& settings, const VisibleArea& visible, Change change) {
    m_result.reset();
    if (const RoundTripResult* kept = m_cache.find(settings)) {
        m_worker.cancel();
        m_pending.reset();
        m_followUp.reset();
        if (!kept->similarity)
            m_worker.request({++m_lastNumber, settings, visible, *kept});
        finish(*kept);
        return;
    }
    RoundTripWorker::Request request{0, settings, visible};
    // A slider that is dragged would stop each request before anything of it is seen.
    if (change == Change::Dragged && m_pending && !m_pending->isSeen)
        m_followUp = std::move(request);
    else
        send(std::move(request));
}

void LiveRoundTrip::send(RoundTripWorker::Request request) {
    m_followUp.reset();
    request.number = ++m_lastNumber;
    m_pending = Pending{request};
    m_worker.request(std::move(request));
}

void LiveRoundTrip::show(const VisibleArea& visible) {
    if (!m_pending || m_pending->request.visible == visible)
        return;
    m_pending->request.visible = visible;
    if (m_followUp)
        m_followUp->visible = visible;
    m_worker.requestPart(m_pending->request);
}

void LiveRoundTrip::take(RoundTripWorker::Answer answer) {
    if (answer.similarity && answer.number == m_lastNumber && m_result)
        takeSimilarity(*answer.similarity);
    if (!m_pending || answer.number != m_pending->request.number)
        return;
    if (answer.part) {
        if (answer.area != m_pending->request.visible)
            return; // of which another part was asked for since
        m_pending->isAnswered = true;
        Q_EMIT pictureReady(*answer.part);
        return;
    }
    if (answer.result)
        m_cache.keep(*answer.result);
    if (m_followUp) {
        if (answer.result && !answer.result->decoded.isNull())
            Q_EMIT pictureReady(shownOf(*answer.result));
        return send(*std::exchange(m_followUp, std::nullopt));
    }
    m_pending.reset();
    if (answer.result)
        finish(std::move(*answer.result));
    else
        Q_EMIT failed(*answer.failure);
}

void LiveRoundTrip::pictureSeen() {
    if (!m_pending || !m_pending->isAnswered)
        return;
    m_pending->isSeen = true;
    if (m_followUp)
        send(*std::exchange(m_followUp, std::nullopt));
}

void LiveRoundTrip::finish(RoundTripResult result) {
    m_result = std::move(result);
    const QString name = QStringLiteral("temp.") + extensionOfFormat(m_result->settings.format);
    m_files.request({QDir(m_folder).filePath(name), m_result->bytes});
    if (!m_result->decoded.isNull())
        Q_EMIT pictureReady(shownOf(*m_result));
    Q_EMIT finished();
}

void LiveRoundTrip::takeSimilarity(const operations::Similarity& similarity) {
    m_result->similarity = similarity;
    if (RoundTripResult* kept = m_cache.find(m_result->settings))
        kept->similarity = similarity;
    Q_EMIT measured();
}

/// On a thread of its own: a slow disk holds up no answer.
void LiveRoundTrip::leaveFile(const LeftFile& file, const std::stop_token& stop) {
    const std::optional<TrappedError> failure = failureOf([&] {
        QDir().mkpath(m_folder);
        SafeFileWriter writer(file.path);
        for (qsizetype at = 0; at < file.bytes.size(); at += writtenAtOnce) {
            raiseIfStopped(stop);
            writer.write(file.bytes.constData() + at, std::min(writtenAtOnce, file.bytes.size() - at));
        }
        writer.commit();
    });
    if (failure && !stop.stop_requested())
        QMetaObject::invokeMethod(
            this, [this, failure] { Q_EMIT fileNotLeft(failure->description); }, Qt::QueuedConnection);
}

} // namespace tarsel
