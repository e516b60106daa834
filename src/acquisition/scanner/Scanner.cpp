// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/scanner/Scanner.h"

#include "acquisition/scanner/ScannerProcess.h"
#include "base/FailureOf.h"
#include "base/IgnoringErrors.h"

#include <QCoreApplication>
#include <condition_variable>
#include <deque>
#include <future>
#include <mutex>
#include <thread>
#include <utility>

namespace tarsel {

namespace {

/// The ends of scanners that are gone: a driver can take seconds for its own, for which no window waits. The
/// program does, so that a page is saved to its end, and no process stays.
class ScannerEnds {
public:
    using Ends = std::vector<std::shared_future<void>>;

    static ScannerEnds& all() {
        static ScannerEnds ends;
        return ends;
    }

    void add(std::shared_future<void> end) {
        const std::lock_guard lock(m_mutex);
        std::erase_if(m_ends, [](const std::shared_future<void>& each) {
            return each.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
        });
        m_ends.push_back(std::move(end));
    }
    Ends current() {
        const std::lock_guard lock(m_mutex);
        return m_ends;
    }
    static void wait(const Ends& ends) {
        for (const std::shared_future<void>& end : ends)
            end.wait();
    }

private:
    ScannerEnds() {
        qAddPostRoutine([] { wait(all().current()); });
    }

    std::mutex m_mutex;
    Ends m_ends;
};

} // namespace

/// The thread on which the process is used. Its destructor waits for the end of both.
class Scanner::Worker {
public:
    explicit Worker(Scanner& scanner) : m_scanner(&scanner) {}
    ~Worker() {
        cancel();
        m_thread.request_stop();
    }
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    using Call = std::function<void(ScannerProcess&, const std::stop_token&)>;

    void add(Call call) {
        const std::lock_guard lock(m_mutex);
        m_calls.push_back({std::move(call), std::stop_source()});
        m_changed.notify_all();
    }

    /// The calls that wait are made too: each says that it was cancelled.
    void cancel() {
        const std::lock_guard lock(m_mutex);
        for (Waiting& call : m_calls)
            call.stop.request_stop();
        m_running.request_stop();
    }

    /// Runs `deliver` on the scanner's thread, while there is one. From this one.
    void deliver(std::function<void()> deliver) {
        const std::lock_guard lock(m_receiving);
        if (!m_scanner)
            return;
        m_deliveries.push_back(std::move(deliver));
        Q_EMIT m_scanner->delivered(QPrivateSignal());
    }

    /// The oldest one that deliver has left. From the scanner's thread, once for each.
    std::function<void()> takeDelivery() {
        const std::lock_guard lock(m_receiving);
        std::function<void()> oldest = std::move(m_deliveries.front());
        m_deliveries.pop_front();
        return oldest;
    }

    /// Nothing more is delivered. Ends on a thread of its own.
    static void leave(std::unique_ptr<Worker> worker) {
        {
            const std::lock_guard lock(worker->m_receiving);
            worker->m_scanner = nullptr;
        }
        worker->cancel();
        ScannerEnds::all().add(
            std::async(std::launch::async, [worker = std::move(worker)]() mutable { worker.reset(); }));
    }

private:
    struct Waiting {
        Call call;
        std::stop_source stop;
    };

    void run(const std::stop_token& end) {
        ScannerEnds::wait(std::exchange(m_earlier, {}));
        ScannerProcess process;
        std::unique_lock lock(m_mutex);
        while (m_changed.wait(lock, end, [this] { return !m_calls.empty(); })) {
            const Waiting next = std::move(m_calls.front());
            m_calls.pop_front();
            m_running = next.stop;
            lock.unlock();
            next.call(process, next.stop.get_token());
            lock.lock();
        }
    }

    std::mutex m_receiving;
    Scanner* m_scanner;
    std::deque<std::function<void()>> m_deliveries;
    ScannerEnds::Ends m_earlier = ScannerEnds::all().current(); ///< which may still have the device open
    std::mutex m_mutex;
    std::condition_variable_any m_changed;
    std::deque<Waiting> m_calls;
    std::stop_source m_running;
    std::jthread m_thread{[this](const std::stop_token& end) { run(end); }};
};

Scanner::Scanner(QObject* parent) : QObject(parent), m_worker(std::make_unique<Worker>(*this)) {
    connect(
        this, &Scanner::delivered, this, [this] { m_worker->takeDelivery()(); }, Qt::QueuedConnection);
}

Scanner::~Scanner() {
    ignoringErrors([this] { Worker::leave(std::move(m_worker)); });
}

/// Makes the call on the worker's thread, then the answer that it returns, or failed, on this one.
void Scanner::call(std::function<Answer(ScannerProcess&, const std::stop_token&)> work) {
    ++m_pending;
    m_worker->add([this, worker = m_worker.get(), work = std::move(work)](ScannerProcess& process,
                                                                          const std::stop_token& stop) {
        Answer answer;
        const auto error = failureOf([&] { answer = work(process, stop); });
        worker->deliver([this, answer, error, isOpen = process.isOpen()] {
            --m_pending;
            m_isOpen = isOpen;
            error ? Q_EMIT failed(*error) : answer();
        });
    });
}

void Scanner::listDevices() {
    call([this](ScannerProcess& process, const std::stop_token& stop) {
        return [this, devices = process.devices(stop)] { Q_EMIT devicesListed(devices); };
    });
}

void Scanner::open(const QString& device) {
    call([this, device](ScannerProcess& process, const std::stop_token& stop) {
        process.open(device, stop);
        return [this, options = process.options()] { Q_EMIT opened(options); };
    });
}

void Scanner::close() {
    call([this](ScannerProcess& process, const std::stop_token&) {
        ignoringErrors([&] { process.close(); });
        return [this] { Q_EMIT closed(); };
    });
}

void Scanner::setOptions(const std::vector<ScanSetting>& settings) {
    call([this, settings](ScannerProcess& process, const std::stop_token& stop) {
        const std::vector<RoundedSetting> rounded = process.set(settings, stop);
        return [this, rounded, options = process.options()] { Q_EMIT optionsChanged(options, rounded); };
    });
}

void Scanner::TwainAcquire(const ScanRequest& request) {
    call([this, worker = m_worker.get(), request](ScannerProcess& process, const std::stop_token& stop) {
        if (request.firstNumber == 1 && !request.isPreview)
            worker->deliver([this] { m_imageCount = 0; });
        const ScanListeners listeners{.progress =
                                          [=, this](const ScanProgress& now) {
                                              worker->deliver([this, now] { Q_EMIT progress(now); });
                                          },
                                      .pageArrived =
                                          [this, worker, isCounted = !request.isPreview](
                                              const ScannedPage& page, const AcquiredFile& file) {
                                              worker->deliver([=, this] {
                                                  m_imageCount = isCounted ? page.number : m_imageCount;
                                                  Q_EMIT pageArrived(page, file);
                                              });
                                          }};
        const ScanEnd end = process.acquire(request, listeners, stop);
        return [this, end] { Q_EMIT finished(end); };
    });
}

bool Scanner::isOpen() const {
    return m_isOpen;
}

bool Scanner::isBusy() const {
    return m_pending > 0;
}

int Scanner::TwainImageCount() const {
    return m_imageCount;
}

void Scanner::cancel() {
    m_worker->cancel();
}

} // namespace tarsel
