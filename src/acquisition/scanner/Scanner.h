// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/scanner/ScanOption.h"
#include "acquisition/scanner/ScannedPage.h"

#include <QObject>
#include <functional>
#include <memory>
#include <stop_token>
#include <vector>

namespace tarsel {

class ScannerProcess;

/// A scanner for a window: every call returns at once, the answer is a signal on the object's own thread.
/// Calls are carried out in their order, each by one signal: its own, or failed. The drivers of scanners,
/// which crash and hang, run in another process.
///
/// TwainReady, TwainAcquire and TwainImageCount are the members of an ImageBox for scanners; they are here
/// since a box has nothing to do with processes.
class Scanner : public QObject {
    Q_OBJECT

public:
    explicit Scanner(QObject* parent = nullptr);
    /// Returns at once. What runs is cancelled, but for a page that is being saved, and the process ended, on
    /// another thread; the next scanner, and the end of the program, wait for that.
    ~Scanner() override;

    /// Searches again, every time; the search on a network can take seconds. Closes the device.
    virtual void listDevices();
    /// Closes the one that is open.
    virtual void open(const QString& device);
    virtual void close();
    /// In this order. One that fails ends the list; the others before it stay.
    virtual void setOptions(const std::vector<ScanSetting>& settings);
    void setOption(const QString& name, const ScanValue& value) { setOptions({{name, value}}); }

    virtual bool isOpen() const; ///< opened() has been sent, and no failure has closed it since
    virtual bool isBusy() const; ///< a call has not been answered yet
    bool TwainReady() const { return isOpen() && !isBusy(); }
    /// Ends with finished(), also when it fails.
    virtual void TwainAcquire(const ScanRequest& request);
    /// Number of the page that arrived last; 0 before the first one, and again when a request starts with
    /// page 1.
    virtual int TwainImageCount() const;
    /// Stops whatever runs, and what waits: within seconds, even where the driver hangs. An acquisition ends
    /// with finished(Cancelled), another call with failed() and error 18; the device may have to be opened
    /// again.
    virtual void cancel();

Q_SIGNALS:
    void devicesListed(const std::vector<tarsel::ScanDevice>& devices);
    void opened(const tarsel::ScanOptions& options);
    void closed();
    /// After setOptions. What a preview changes of the options it puts back.
    void optionsChanged(const tarsel::ScanOptions& options,
                        const std::vector<tarsel::RoundedSetting>& rounded);
    void progress(const tarsel::ScanProgress& progress); ///< at most some twenty a second
    void pageArrived(const tarsel::ScannedPage& page, const tarsel::AcquiredFile& file);
    void finished(const tarsel::ScanEnd& end);
    /// A call other than TwainAcquire. When the process was lost the device is closed: see isOpen.
    void failed(const tarsel::TrappedError& error);
    void delivered(QPrivateSignal); ///< from the worker's thread

private:
    class Worker;
    using Answer = std::function<void()>;
    void call(std::function<Answer(ScannerProcess&, const std::stop_token&)> work);

    std::unique_ptr<Worker> m_worker;
    bool m_isOpen = false;
    int m_pending = 0; ///< calls without an answer
    int m_imageCount = 0;
};

} // namespace tarsel
