// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/scanner/Scanner.h"

#include "acquisition/scanner/ScannerProcess.h"
#include "base/FailureOf.h"
#include "base/IgnoringErrors.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

namespace tarsel {

/// The thread on which the process is used.
class Scanner::Worker {
public:
    explicit Worker(Scanner& scanner) : m_scanner(scanner) {}
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

    /// Runs `deliver` on the scanner's thread. From this one.
    void deliver(std::function<void()> deliver) const {
        QMetaObject::invokeMethod(&m_scanner, std::move(deliver), Qt::QueuedConnection);
    }

private:
    struct Waiting {
        Call call;
        std::stop_source stop;
    };

    void run(const std::stop_token& end) {
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

    Scanner& m_scanner;
    std::mutex m_mutex;
    std::condition_variable_any m_changed;
    std::deque<Waiting> m_calls;
    std::stop_source m_running;
    std::jthread m_thread{[this](const std::stop_token& end) { run(end); }};
};

Scanner::Scanner(QObject* parent) : QObject(parent), m_worker(std::make_unique<Worker>(*this)) {}

Scanner::~Scanner() = default;

/// Makes the call on the worker's thread, then the answer that it returns, or failed, on this one.
void Scanner::call(std::function<Answer(ScannerProcess&, const std::stop_token&)> work) {
    ++m_pending;
    m_worker->add([this, work = std::move(work)](ScannerProcess& process, const std::stop_token& stop) {
        Answer answer;
        const auto error = failureOf([&] { answer = work(process, stop); });
        m_worker->deliver([this, answer, error, isOpen = process.isOpen()] {
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
    call([this, request](ScannerProcess& process, const std::stop_token& stop) {
        if (request.firstNumber == 1 && !request.isPreview)
            m_worker->deliver([this] { m_imageCount = 0; });
        const ScanListeners listeners{
            .progress =
                [this](const ScanProgress& now) { m_worker->deliver([this, now] { Q_EMIT progress(now); }); },
            .pageArrived =
                [this, isCounted = !request.isPreview](const ScannedPage& page, const AcquiredFile& file) {
                    m_worker->deliver([=, this] {
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
