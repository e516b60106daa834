// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/PreviewWorker.h"

#include "base/FailureOf.h"
#include "base/IgnoringErrors.h"
#include "base/Spreading.h"
#include "base/Stop.h"
#include "codecs/PictureFile.h"
#include "collections/LoadSource.h"
#include "imaging/DisplayColors.h"
#include "imaging/QuickPicture.h"
#include "imaging/Upright.h"
#include "tasks/PreviewStep.h"
#include "tasks/Replay.h"

#include <cmath>
#include <utility>

namespace tarsel {

namespace {

constexpr int snapshotFormat = 7;
/// JPEG files of more pixels are shown reduced first, those of the second number as their thumbnail before.
constexpr std::int64_t largePicture = 10'000'000;
constexpr std::int64_t hugePicture = 30'000'000;
/// Pictures of other formats, which are decoded in full only, are shown as their thumbnail first.
constexpr std::int64_t largeInOtherFormats = 1'000'000;
/// Smaller pictures have their preview as soon as a reduced one would have.
constexpr std::int64_t largeForPreview = 4'000'000;

using Deliver = std::function<void(PreviewWorker::Result)>;

/// As the batch does, so that both run the tasks on the same pixels. The metadata stay those of the file,
/// which the lists show.
void load(ImageBox& box, const QString& path, bool upright) {
    box.PageNumber = 1;
    if (!loadSource(box, path, currentStop()))
        fail(ErrorNumber::UnreadableFile, path + QStringLiteral(": ") + noPictureReason(path));
    const MetadataStore asRead = box.metadata();
    prepareForTasks(box, path, upright);
    box.metadata() = asRead;
}

/// One request on its way through the worker.
class Loading {
public:
    Loading(PreviewWorker::Request request, ReducedStart& reducedStart, const Deliver& deliver) :
        m_request(std::move(request)), m_reducedStart(reducedStart), m_deliver(deliver),
        m_result{m_request.number, m_request.path, {m_request.path, {}}, true, std::move(m_request.box)} {}

    void run() {
        const std::optional<TrappedError> failure = failureOf([&] { start(); });
        raiseIfStopped();
        if (failure) {
            m_result.box.Clear();
            m_result.shown.notice = failure->description;
        } else {
            runTasks();
        }
        m_deliver(std::move(m_result));
    }

private:
    void start() {
        if (m_request.path.isEmpty()) {
            m_result.box.LoadFromMemory(m_request.start, snapshotFormat);
            return;
        }
        if (m_request.tasks.empty()) // what they make of a picture can be anything
            ignoringErrors([&] { showQuickly(PictureFile(m_request.path)); });
        raiseIfStopped();
        load(m_result.box, m_request.path, m_request.upright);
    }

    void showQuickly(const PictureFile& file) {
        if (!file.isRecognised())
            return;
        const PictureHeader header = file.header();
        const std::int64_t pixels = std::int64_t(header.width) * header.height;
        const bool isJpeg = file.usualExtension() == QLatin1String("jpg");
        const bool hasThumbnail = pixels > hugePicture &&
                                  showQuick(file, [&] { return embeddedThumbnail(file, m_request.upright); });
        if (!hasThumbnail && m_request.readStored && pixels > (isJpeg ? hugePicture : largeInOtherFormats))
            showQuick(file, [&] { return m_request.readStored(file, m_request.upright); });
        if (pixels > largePicture)
            showQuick(file, [&] { return reducedPicture(file, m_request.view, m_request.upright); });
    }

    template <class Read>
    bool showQuick(const PictureFile& file, Read read) {
        std::optional<QuickPicture> quick;
        ignoringErrors([&] {
            quick = read();
            if (quick)
                m_deliver(
                    {m_request.number,
                     m_request.path,
                     {file.name(), quick->picture, quick->size, visibleProfile(quick->iccProfile), true},
                     false});
        });
        raiseIfStopped();
        return quick.has_value();
    }

    void runTasks() {
        m_result.original =
            m_request.path.isEmpty() ? m_request.original : m_result.box.SaveToMemory(snapshotFormat);
        if (m_request.preview && m_request.reducedFirst && looksTheSameReduced(*m_request.preview))
            ignoringErrors([&] { previewReduced(); });
        raiseIfStopped();
        m_result.failure = failureOf([&] {
            replayRows(m_result.box, m_request.tasks, currentStop());
            if (m_request.preview)
                previewStep(m_result.box, *m_request.preview);
        });
        raiseIfStopped();
        // Also after a task that failed: the tasks before it show.
        const Picture& picture = m_result.box.picture();
        const MetadataStore& metadata =
            m_request.path.isEmpty() ? m_request.metadata : m_result.box.metadata();
        m_result.shown.picture = picture;
        m_result.shown.size = {picture.width(), picture.height()};
        m_result.shown.notice = m_result.box.LoadDamage();
        m_result.shown.iccProfile = visibleProfile(metadata);
    }

    void previewReduced() {
        const Picture& start = m_request.start;
        if (std::int64_t(start.width()) * start.height() < largeForPreview)
            return;
        ImageBox box = m_request.box;
        const Picture& reduced = m_reducedStart.of(start, m_request.view);
        box.LoadFromMemory(reduced, snapshotFormat);
        previewStep(box, *m_request.preview);
        const double scale = double(start.width()) / reduced.width();
        const Size size{int(std::lround(box.Width() * scale)), int(std::lround(box.Height() * scale))};
        m_deliver({m_request.number,
                   m_request.path,
                   {{}, box.picture(), size, visibleProfile(m_request.metadata), true},
                   false});
    }

    PreviewWorker::Request m_request;
    ReducedStart& m_reducedStart;
    const Deliver& m_deliver;
    PreviewWorker::Result m_result;
};

} // namespace

PreviewWorker::PreviewWorker(std::function<void(Result)> deliver) :
    m_work([this, deliver = std::move(deliver)](Request request, const std::stop_token& stop) {
        const SpreadingScope spreading;
        const StopScope scope(stop);
        ignoringErrors([&] {
            if (!request.preview)
                m_reducedStart = {};
            Loading(std::move(request), m_reducedStart, [&](Result result) {
                raiseIfStopped();
                deliver(std::move(result));
            }).run();
        });
    }) {}

} // namespace tarsel
