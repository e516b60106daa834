// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/PreviewWorker.h"

#include "base/FailureOf.h"
#include "base/IgnoringErrors.h"
#include "base/Spreading.h"
#include "imaging/DisplayColors.h"
#include "imaging/Upright.h"
#include "imaging/fncLoadPicture.h"
#include "tasks/Replay.h"

#include <QFileInfo>

#include <stop_token>
#include <utility>

namespace tarsel {

namespace {

constexpr int snapshotFormat = 7;
constexpr Color white = 0xFFFFFF;

/// Formats whose metadata the preview can list. A batch loads more formats by the box, since it carries their
/// metadata to what it writes (carriesMetadata in LoadSource); prepare() makes the pixels the same.
bool goesThroughTheBox(const QString& path) {
    const QString extension = QFileInfo(path).suffix().toLower();
    return extension == QLatin1String("tiff") || extension == QLatin1String("tif") ||
           extension == QLatin1String("jpg") || extension == QLatin1String("jpeg");
}

/// The batch prepares pictures in the same way, so that both run the tasks on the same pixels. The metadata
/// stay those of the file, which the lists show.
void prepare(ImageBox& box, const QString& path, bool upright) {
    if (!box.HasImage())
        return;
    const MetadataStore asRead = box.metadata();
    prepareForTasks(box, path, upright);
    box.metadata() = asRead;
}

/// Formats that carry metadata go through the box, all others through the picture loader. An unreadable file
/// is not an error here: the box stays empty.
void load(ImageBox& box, const QString& path, bool upright, const std::stop_token& stop) {
    ignoringErrors([&] {
        if (goesThroughTheBox(path)) {
            box.PageNumber = 1;
            box.LoadFromFile(path, stop);
        } else if (const auto picture =
                       fncLoadPicture(path, LoadMode::FullSize, {-1, -1}, white, nullptr, stop)) {
            box.setPictureHandle(*picture);
        }
        prepare(box, path, upright);
    });
}

PreviewWorker::Result resultOf(PreviewWorker::Request request, const std::stop_token& stop) {
    PreviewWorker::Result result{request.number, request.path, std::move(request.box), {}, {}, {}};
    result.failure = failureOf([&] {
        if (request.path.isEmpty())
            result.box.LoadFromMemory(request.original, snapshotFormat);
        else
            load(result.box, request.path, request.upright, stop);
        if (!result.box.HasImage() || stop.stop_requested())
            return;
        result.original = result.box.SaveToMemory(snapshotFormat);
        replayRows(result.box, request.tasks, stop);
    });
    // Also after a task that failed: the tasks before it show.
    ignoringErrors([&] {
        const MetadataStore& metadata = request.path.isEmpty() ? request.metadata : result.box.metadata();
        if (result.box.HasImage() && !stop.stop_requested())
            result.display = forDisplay(result.box.picture(), metadata, request.displayLimit);
    });
    return result;
}

} // namespace

PreviewWorker::PreviewWorker(std::function<void(Result)> deliver) :
    m_deliver(std::move(deliver)), m_thread([this] { run(); }) {}

PreviewWorker::~PreviewWorker() {
    {
        const std::lock_guard lock(m_mutex);
        m_ending = true;
        m_waiting.reset();
        m_current.request_stop();
    }
    m_changed.notify_one();
    m_thread.join();
}

void PreviewWorker::request(Request request) {
    {
        const std::lock_guard lock(m_mutex);
        m_current.request_stop();
        m_waiting = std::move(request);
    }
    m_changed.notify_one();
}

void PreviewWorker::cancel() {
    const std::lock_guard lock(m_mutex);
    m_current.request_stop();
    m_waiting.reset();
}

/// Waits for work; nothing at the end.
std::optional<PreviewWorker::Request> PreviewWorker::next() {
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_ending || m_waiting; });
    if (m_ending)
        return std::nullopt;
    m_current = std::stop_source();
    return std::exchange(m_waiting, std::nullopt);
}

void PreviewWorker::run() {
    const SpreadingScope scope;
    while (std::optional<Request> request = next()) {
        const std::stop_token stop = m_current.get_token();
        Result result = resultOf(*std::exchange(request, std::nullopt), stop);
        if (!stop.stop_requested())
            m_deliver(std::move(result));
    }
}

} // namespace tarsel
