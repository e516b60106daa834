// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/scanner/ScanOption.h"
#include "acquisition/scanner/ScannedPage.h"
#include "acquisition/scanner/ScannerLink.h"

#include <functional>

namespace tarsel {

class PageAssembly;

/// How long each kind of request may be silent.
struct ScannerLimits {
    std::chrono::milliseconds list{60000};
    std::chrono::milliseconds open{60000};
    std::chrono::milliseconds option{30000};
    std::chrono::milliseconds rest{20000};  ///< the carriage goes home
    std::chrono::milliseconds page{300000}; ///< lamps warm up, people look for the next sheet
};

/// Called while an acquisition runs, on its thread. Each may be empty.
struct ScanListeners {
    std::function<void(const ScanProgress&)> progress = {};
    std::function<void(const ScannedPage&, const AcquiredFile&)> pageArrived = {};
};

/// Scanners, one call after the other; each waits for its end. Drivers run in another process,
/// the private file "tarsel-scanner", or what the environment's TARSEL_SCANNER names. A failure is a
/// TrappedError, see ScannerErrors.h; when the process is lost, the device is closed and the next call gets a
/// fresh process. For one thread at a time.
class ScannerProcess {
public:
    explicit ScannerProcess(const ScannerLimits& limits = {}) : m_limits(limits) {}

    /// Searches again, every time. Closes the device. Not an error when there is none.
    std::vector<ScanDevice> devices(const std::stop_token& stop = {});
    void open(const QString& device, const std::stop_token& stop = {});
    void close();
    bool isOpen(); ///< false also after a loss of the process
    const QString& device() const { return m_device; }
    const ScanOptions& options() const { return m_options; } ///< of the open device
    /// In this order; returns what was rounded. An error names the option, and leaves the settings before it.
    std::vector<RoundedSetting> set(const std::vector<ScanSetting>& settings,
                                    const std::stop_token& stop = {});
    /// Errors are in the result. The device stays open, unless the process is lost.
    ScanEnd acquire(const ScanRequest& request, const ScanListeners& listeners = {},
                    const std::stop_token& stop = {});

    pid_t processId() const { return m_link.processId(); }

private:
    enum class PageEnd { Complete, NoMoreDocuments };

    ScannerReply ask(const ScannerRequest& request, const QByteArray& text, const QString& subject,
                     const ScannerPatience& patience);
    void requireOpen();
    void readOptions(const std::stop_token& stop);
    std::optional<RoundedSetting> setOne(const ScanSetting& setting, const std::stop_token& stop);
    void acquirePages(const ScanRequest& request, const ScanListeners& listeners, const std::stop_token& stop,
                      int& pages);
    bool acquirePage(const ScanRequest& request, const ScanListeners& listeners, const std::stop_token& stop,
                     int number);
    PageEnd readPage(PageAssembly& page, const std::function<void()>& onLines, const std::stop_token& stop);
    bool readFrame(PageAssembly& page, const std::function<void()>& onLines, const std::stop_token& stop,
                   bool& isLast);
    void bringToRest(const std::stop_token& stop);

    const ScannerLimits m_limits;
    ScannerLink m_link;
    QString m_device; ///< empty when none is open
    ScanOptions m_options;
};

} // namespace tarsel
