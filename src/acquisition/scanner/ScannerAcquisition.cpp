// SPDX-License-Identifier: GPL-3.0-or-later
// The acquisition of pages by ScannerProcess.

#include "acquisition/scanner/PageAssembly.h"
#include "acquisition/scanner/ScannerErrors.h"
#include "acquisition/scanner/ScannerProcess.h"
#include "base/FailureOf.h"
#include "base/IgnoringErrors.h"
#include "base/Stop.h"

#include <QLoggingCategory>
#include <cstring>

namespace tarsel {

namespace {

Q_LOGGING_CATEGORY(logging, "tarsel.scanner", QtWarningMsg)

constexpr int statusNoDocuments = 7; ///< SANE_STATUS_NO_DOCS
constexpr double previewDpi = 75;

/// What makes a quick, coarse picture of the whole area of the glass.
std::vector<ScanSetting> previewSettings(const ScanOptions& options) {
    std::vector<ScanSetting> settings = options.settingsForResolution(previewDpi);
    if (options.findSettable(scanOption::preview))
        settings.push_back({scanOption::preview, true});
    return settings;
}

/// The values that these options have now.
std::vector<ScanSetting> valuesOf(const ScanOptions& options, const std::vector<ScanSetting>& settings) {
    std::vector<ScanSetting> values;
    for (const ScanSetting& setting : settings)
        if (const ScanOption* option = options.find(setting.name))
            values.push_back({setting.name, option->value});
    return values;
}

/// The resolution first: the area depends on it where its unit is the pixel.
class PreviewScope {
public:
    PreviewScope(ScannerProcess& process, const std::stop_token& stop) : m_process(process) {
        m_area = process.options().area();
        const std::vector<ScanSetting> settings = previewSettings(process.options());
        m_before = valuesOf(process.options(), settings);
        process.set(settings, stop);
        process.set(process.options().settingsForArea(process.options().wholeArea()), stop);
    }
    ~PreviewScope() {
        ignoringErrors([this] {
            if (!m_process.isOpen())
                return;
            m_process.set(m_before);
            m_process.set(m_process.options().settingsForArea(m_area));
        });
    }
    PreviewScope(const PreviewScope&) = delete;
    PreviewScope& operator=(const PreviewScope&) = delete;

private:
    ScannerProcess& m_process;
    QRectF m_area;
    std::vector<ScanSetting> m_before;
};

/// Tells the progress of a page not more often than a person can see.
class PageProgress {
public:
    PageProgress(const ScanListeners& listeners, int number) : m_listeners(listeners) {
        m_last.number = number;
    }

    void lines(const PageAssembly& page) {
        m_last.lines = page.lines();
        m_last.allLines = page.allLines();
        const auto now = std::chrono::steady_clock::now();
        if (now - m_told < std::chrono::milliseconds(50))
            return;
        m_told = now;
        tell();
    }
    void saving(int lines) {
        m_last.lines = m_last.allLines = lines;
        m_last.isSaving = true;
        tell();
    }

private:
    void tell() const {
        if (m_listeners.progress)
            m_listeners.progress(m_last);
    }

    const ScanListeners& m_listeners;
    ScanProgress m_last;
    std::chrono::steady_clock::time_point m_told;
};

} // namespace

ScanEnd ScannerProcess::acquire(const ScanRequest& request, const ScanListeners& listeners,
                                const std::stop_token& stop) {
    ScanEnd end;
    end.error = failureOf([&] {
        raiseIfStopped(stop);
        requireOpen();
        std::optional<PreviewScope> preview;
        if (request.isPreview)
            preview.emplace(*this, stop);
        const auto error = failureOf([&] { acquirePages(request, listeners, stop, end.pages); });
        bringToRest(stop);
        if (error)
            throw *error;
    });
    if (end.error)
        end.reason =
            end.error->number == ErrorNumber::Interrupted ? ScanEndReason::Cancelled : ScanEndReason::Failed;
    if (end.reason == ScanEndReason::Cancelled)
        end.error.reset();
    return end;
}

void ScannerProcess::acquirePages(const ScanRequest& request, const ScanListeners& listeners,
                                  const std::stop_token& stop, int& pages) {
    const bool isOnePage =
        request.isPreview || (request.mostPages == 0 && !m_options.isFeeder().value_or(false));
    const int most = isOnePage ? 1 : request.mostPages;
    while (most == 0 || pages < most) {
        raiseIfStopped(stop);
        if (!acquirePage(request, listeners, stop, request.firstNumber + pages))
            break;
        ++pages;
    }
    if (pages == 0)
        failScanning(ScannerFault::NoDocuments, m_device);
}

/// False when the feeder has no page any more.
bool ScannerProcess::acquirePage(const ScanRequest& request, const ScanListeners& listeners,
                                 const std::stop_token& stop, int number) {
    PageAssembly assembly;
    PageProgress progress(listeners, number);
    if (readPage(
            assembly, [&] { progress.lines(assembly); }, stop) == PageEnd::NoMoreDocuments)
        return false;
    const bool isCut = assembly.isCut();
    const ScannedPage page{assembly.take(),  number,           assembly.colorFormat(),
                           m_options.dpiX(), m_options.dpiY(), isCut};
    if (page.picture.isNull())
        failScanning(ScannerFault::EmptyPage, m_device);
    AcquiredFile file;
    if (request.save && !request.isPreview) {
        progress.saving(page.picture.height());
        const auto start = std::chrono::steady_clock::now();
        file = request.save(page);
        const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
        qCDebug(logging, "page %d is saved in %.3f s", number, seconds.count());
    }
    if (listeners.pageArrived)
        listeners.pageArrived(page, file);
    return true;
}

ScannerProcess::PageEnd ScannerProcess::readPage(PageAssembly& page, const std::function<void()>& onLines,
                                                 const std::stop_token& stop) {
    bool isLast = false;
    while (!isLast)
        if (!readFrame(page, onLines, stop, isLast))
            return PageEnd::NoMoreDocuments;
    return PageEnd::Complete;
}

/// False when there is no document for it.
bool ScannerProcess::readFrame(PageAssembly& page, const std::function<void()>& onLines,
                               const std::stop_token& stop, bool& isLast) {
    const ScannerPatience patience{m_limits.page, stop, true};
    bool isBegun = false;
    m_link.send({.command = ScannerCommand::StartFrame}, {}, m_device);
    for (;;) {
        const ScannerReply reply = m_link.receive(patience);
        if (reply.kind == ScannerReplyKind::Answer) {
            if (reply.status == statusNoDocuments && !isBegun)
                return false;
            if (const auto fault = faultOfStatus(reply.status))
                failScanning(*fault, m_device);
            if (!isBegun) // it would be asked for again and again
                failScanning(ScannerFault::EmptyPage, m_device);
            page.end();
            return true;
        }
        if (reply.kind == ScannerReplyKind::Frame && !isBegun &&
            m_link.bytes().size() == sizeof(ScannerFrame)) {
            ScannerFrame frame;
            std::memcpy(&frame, m_link.bytes().data(), sizeof frame);
            if (!page.begin(frame))
                failScanning(ScannerFault::UnknownFrame, m_device);
            isLast = frame.isLast != 0;
            isBegun = true;
        } else if (reply.kind != ScannerReplyKind::Lines || !isBegun) {
            failScanning(ScannerFault::BrokenProtocol, m_device);
        } else if (!page.add(m_link.bytes())) {
            failScanning(ScannerFault::NoMemory, m_device);
        }
        onLines();
    }
}

void ScannerProcess::bringToRest(const std::stop_token& stop) {
    ScannerPatience patience{m_limits.rest, stop};
    if (stop.stop_requested()) // which leaves the device its time, but not more
        patience = {ScannerLink::timeToRest};
    ignoringErrors([&] {
        m_link.abandon(); // after a failure in the middle of a frame
        if (isOpen())
            ask({.command = ScannerCommand::EndPages}, {}, m_device, patience);
    });
}

} // namespace tarsel
