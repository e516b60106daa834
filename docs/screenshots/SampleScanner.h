// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/scanner/Scanner.h"

#include <optional>

namespace tarsel {

/// A scanner without a device, for pictures of the dialog and for tests of it: a flatbed with a feeder. Its
/// answers come by themselves, from the event loop; the pages of an acquisition too, unless they are held.
class SampleScanner final : public Scanner {
    Q_OBJECT
public:
    SampleScanner();
    static ScanOptions sampleOptions();

    // what it has
    std::vector<ScanDevice> devices;
    int pagesInFeeder = 3, pagesOfFlatbed = 1;
    Picture page;                      ///< what lies on it
    bool cutsPages = false;            ///< they are lower than promised
    bool holdsPages = false;           ///< until deliver() and end()
    std::optional<TrappedError> fault; ///< ends the next acquisition, after its pages, or the next opening

    // what was asked of it
    std::vector<ScanRequest> requests;
    std::vector<ScanSetting> taken; ///< settings, in their order
    int cancelled = 0;

    void deliver(int lines = 0); ///< a page of the acquisition in work, after a part of its lines
    /// A driver that crashes has to be opened again.
    void end(const ScanEnd& end, bool crashes = false);

    void listDevices() override;
    void open(const QString& device) override;
    void close() override;
    void setOptions(const std::vector<ScanSetting>& settings) override;
    bool isOpen() const override { return m_isOpen; }
    bool isBusy() const override { return m_pending > 0; }
    void TwainAcquire(const ScanRequest& request) override;
    int TwainImageCount() const override { return m_count; }
    void cancel() override;

private:
    void answer(std::function<void()> signal);
    void apply(const ScanSetting& setting);
    void acquireAll();

    std::vector<ScanOption> m_options;
    bool m_isOpen = false;
    int m_pending = 0;
    int m_count = 0;
    int m_ofRequest = 0;
};

} // namespace tarsel
