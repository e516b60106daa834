// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/RowAhead.h"

#include "base/FailureOf.h"
#include "base/IgnoringErrors.h"
#include "codecs/PictureFile.h"
#include "collections/LettingEventsRun.h"
#include "tasks/Replay.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace tarsel {

namespace {

bool ranOutOfMemory(const std::optional<TrappedError>& failure) {
    return failure && failure->number == ErrorNumber::OutOfMemory;
}

/// By its header; a file that has none that can be read needs no memory either.
bool claimsMorePixels(const QString& path, std::int64_t max, const std::stop_token& stop) {
    std::int64_t claimed = 0;
    const bool isKnown = ignoringErrors([&] {
        const PictureHeader header = PictureFile(path).header(stop);
        claimed = std::int64_t(header.width) * header.height;
    });
    return isKnown && claimed > max;
}

} // namespace

struct RowAhead::Load {
    struct Result {
        ImageBox box;
        bool isPicture = false;
        std::optional<TrappedError> failure;
    };
    const int row;
    const QString path;
    const FileStamp stamp; ///< from before the file was opened
    Awaited<Result> result;

    Load(int ofRow, QString file) : row(ofRow), path(std::move(file)), stamp(FileStamp::of(path)) {}
    /// With an error 7 for a picture that is too large for others to be there.
    void runBesideOthers(const Rules& rules, const std::stop_token& stop) {
        if (!claimsMorePixels(path, rules.maxPixels, stop))
            return run(rules, stop);
        Result tooLarge;
        tooLarge.failure = TrappedError{ErrorNumber::OutOfMemory, errorText(ErrorNumber::OutOfMemory), {}};
        result.set(std::move(tooLarge));
    }
    void run(const Rules& rules, const std::stop_token& stop) {
        Result made;
        made.failure = failureOf([&] {
            made.box.PageNumber = rules.pageNumber;
            made.isPicture = loadPrepared(made.box, path, rules.upright, stop, rules.drawn);
        });
        result.set(std::move(made));
    }
};

struct RowAhead::Preparation {
    const std::shared_ptr<Load> load;
    const std::vector<TaskRow> tasks;
    ImageBox box;           ///< the settings, until the work begins
    Awaited<bool> isLoaded; ///< the tasks begin
    Awaited<PreparedRow> result;

    Preparation(std::shared_ptr<Load> source, std::vector<TaskRow> rows, const ImageBox& settings) :
        load(std::move(source)), tasks(std::move(rows)), box(settings) {
        box.Clear();
    }
    void run(const std::stop_token& stop) {
        Load::Result loaded = load->result.take();
        isLoaded.set(true);
        PreparedRow made;
        made.isPicture = loaded.isPicture && !loaded.failure;
        made.loadFailure = std::move(loaded.failure);
        made.box = std::move(box);
        if (made.isPicture) {
            made.box.TakeLoaded(std::move(loaded.box));
            const PixelSize source = made.box.FullSize();
            made.box.Tag = QStringLiteral("%1x%2").arg(source.width).arg(source.height);
            made.taskFailure = failureOf([&] { replayRows(made.box, tasks, stop); });
        }
        result.set(std::move(made));
    }
};

/// The workers, and the stop of what they do.
class RowAhead::Threads {
public:
    explicit Threads(const std::stop_token& stop) :
        m_onStop(stop, [this] { m_loads.request_stop(); }), m_queue(picturesHeld) {}
    Threads(const Threads&) = delete;
    Threads& operator=(const Threads&) = delete;

    /// A stop of the run ends loads, but lets the tasks of the row in work come to their end.
    std::stop_token loadStop() const { return m_loads.get_token(); }
    std::stop_token taskStop() const { return m_tasks.get_token(); }
    void requestStop() {
        m_loads.request_stop();
        m_tasks.request_stop();
    }
    void add(std::function<void()> work) { m_queue.add(std::move(work)); }

private:
    std::stop_source m_loads;
    std::stop_source m_tasks;
    std::stop_callback<std::function<void()>> m_onStop;
    WorkQueue m_queue; // last, so that it ends first
};

RowAhead::RowAhead(Rules rules) :
    m_rules(std::move(rules)), m_threads(m_rules.readAhead ? startThreads() : nullptr) {}

/// Without threads the rows are done one after the other.
std::unique_ptr<RowAhead::Threads> RowAhead::startThreads() const {
    try {
        return std::make_unique<Threads>(m_rules.stop);
    } catch (const std::system_error& error) {
        logIgnored(QString::fromUtf8(error.what()));
        return nullptr;
    }
}

RowAhead::~RowAhead() {
    stopAndDrop();
}

void RowAhead::load(int row, const QString& path) {
    const bool isInWork = m_begun && m_begun->load->row == row;
    if (!m_threads || isInWork ||
        std::ranges::any_of(m_loads, [&](const auto& each) { return each->row == row; }))
        return;
    const auto load = std::make_shared<Load>(row, path);
    m_loads.push_back(load);
    m_threads->add(
        [load, rules = m_rules, stop = m_threads->loadStop()] { load->runBesideOthers(rules, stop); });
}

/// The load of that row, begun now if the file has changed since or another one is to be read.
std::shared_ptr<RowAhead::Load> RowAhead::takeLoad(int row, const QString& path) {
    const auto found = std::ranges::find(m_loads, row, [](const auto& each) { return each->row; });
    if (found != m_loads.end() && ((*found)->path != path || (*found)->stamp != FileStamp::of(path))) {
        waitLettingEventsRun((*found)->result); // its picture goes before another one is loaded
        m_loads.erase(found);
    }
    load(row, path);
    const std::shared_ptr<Load> taken =
        *std::ranges::find(m_loads, row, [](const auto& each) { return each->row; });
    std::erase(m_loads, taken);
    return taken;
}

void RowAhead::begin(int row, const QString& path, const ImageBox& box, const std::vector<TaskRow>& tasks) {
    if (!m_threads)
        return;
    m_begun = std::make_shared<Preparation>(takeLoad(row, path), tasks, box);
    m_threads->add([begun = m_begun, stop = m_threads->taskStop()] { begun->run(stop); });
}

/// What was begun for the row, waited for; nothing if it is of no use.
std::optional<PreparedRow> RowAhead::takeBegun(int row, const QString& path,
                                               const std::vector<TaskRow>& tasks,
                                               const std::function<void()>& onLoaded) {
    const std::shared_ptr<Preparation> begun = std::exchange(m_begun, nullptr);
    if (!begun)
        return std::nullopt;
    const auto isOfUse = [&] {
        const Load& load = *begun->load;
        return load.row == row && load.path == path && load.stamp == FileStamp::of(path) &&
               begun->tasks == tasks;
    };
    waitLettingEventsRun(begun->isLoaded);
    if (isOfUse())
        onLoaded();
    waitLettingEventsRun(begun->result);
    return isOfUse() ? std::optional(begun->result.take()) : std::nullopt;
}

PreparedRow RowAhead::take(int row, const QString& path, const ImageBox& box,
                           const std::vector<TaskRow>& tasks, const std::function<void()>& onLoaded) {
    if (!m_threads)
        return prepareAlone(row, path, box, tasks, onLoaded);
    std::optional<PreparedRow> prepared = takeBegun(row, path, tasks, onLoaded);
    if (!prepared) {
        begin(row, path, box, tasks);
        prepared = takeBegun(row, path, tasks, onLoaded);
    }
    if (prepared && !ranOutOfMemory(prepared->loadFailure) && !ranOutOfMemory(prepared->taskFailure))
        return *std::move(prepared);
    prepared.reset(); // before the next one takes its memory
    stopAndDrop();
    m_threads = startThreads();
    return prepareAlone(row, path, box, tasks, onLoaded);
}

/// With no other picture held; on this thread if there are no others.
PreparedRow RowAhead::prepareAlone(int row, const QString& path, const ImageBox& box,
                                   const std::vector<TaskRow>& tasks, const std::function<void()>& onLoaded) {
    const auto load = std::make_shared<Load>(row, path);
    const auto preparation = std::make_shared<Preparation>(load, tasks, box);
    if (!m_threads) {
        load->run(m_rules, m_rules.stop);
        onLoaded();
        preparation->run({});
    } else {
        m_threads->add([load, rules = m_rules, stop = m_threads->loadStop()] { load->run(rules, stop); });
        m_threads->add([preparation, stop = m_threads->taskStop()] { preparation->run(stop); });
        waitLettingEventsRun(preparation->isLoaded);
        onLoaded();
        waitLettingEventsRun(preparation->result);
    }
    return preparation->result.take();
}

/// Work that runs out of memory beside others is done once more, alone.
void RowAhead::finish(const std::function<void()>& work) {
    if (!m_threads)
        return work();
    const auto ended = std::make_shared<Awaited<std::optional<TrappedError>>>();
    m_threads->add([ended, work] { ended->set(failureOf(work)); });
    waitLettingEventsRun(*ended);
    const std::optional<TrappedError> failure = ended->take();
    if (ranOutOfMemory(failure)) {
        stopAndDrop();
        work();
        m_threads = startThreads();
    } else if (failure) {
        throw *failure;
    }
}

void RowAhead::stopAndDrop() {
    if (!m_threads)
        return;
    m_threads->requestStop();
    if (m_begun)
        waitLettingEventsRun(m_begun->result);
    for (const auto& load : m_loads)
        waitLettingEventsRun(load->result);
    m_begun = nullptr;
    m_loads.clear();
    m_threads = nullptr;
}

} // namespace tarsel
