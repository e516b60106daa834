// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/scanner/AcquiredPages.h"
#include "acquisition/scanner/Scanner.h"

#include <QObject>
#include <memory>
#include <vector>

namespace tarsel {

/// What the user chose at the scanner, for the next dialog of the same run.
struct ScanMemory {
    QString device;                    ///< name; empty before the first one
    std::vector<ScanSetting> settings; ///< in the order of their last change
};

/// What went wrong in an acquisition, for one message at its end.
struct ScanFaults {
    bool isPreview = false;                   ///< of an acquisition that was no more than a preview
    std::optional<TrappedError> scanner = {}; ///< that ended it
    std::vector<int> unsaved = {};            ///< numbers of pages
    std::vector<int> cut = {};                ///< numbers of pages that are lower than promised
    std::vector<TrappedError> errors = {};    ///< why; one of a kind

    bool isEmpty() const { return !scanner && unsaved.empty() && cut.empty(); }
};

/// The course of a scanner dialog without its widgets: finds scanners, opens one, keeps its options in step
/// with what the user does, and acquires page after page.
class ScanSession final : public QObject {
    Q_OBJECT
public:
    enum class State {
        Looking,  ///< for scanners
        NoDevice, ///< none is open: there is none, or it could not be opened
        Opening,
        Ready,
        Previewing,
        Scanning,
        AwaitingPage, ///< the next page of a document is to be put on the glass
    };

    /// `scanner` and `memory` outlive the session.
    ScanSession(Scanner& scanner, ScanMemory& memory);

    State state() const { return m_state; }
    bool isAcquiring() const { return m_state == State::Previewing || m_state == State::Scanning; }
    const std::vector<ScanDevice>& devices() const { return m_devices; }
    const QString& device() const { return m_memory.device; } ///< the one chosen
    const ScanOptions& options() const { return m_options; }
    /// Of the last search or opening; for the page that says why there is no scanner.
    const std::optional<TrappedError>& reason() const { return m_reason; }
    int pagesOfRun() const { return m_pagesOfRun; }
    int nextNumber() const { return m_nextNumber; } ///< that the next acquisition begins with
    bool isStopping() const { return m_isStopping; }

    void look();
    void choose(const QString& device);
    /// Takes effect in the order of the calls. While the scanner is at work only the last value of an option
    /// counts.
    void set(const std::vector<ScanSetting>& settings);
    void set(const QString& name, const ScanValue& value) { set({ScanSetting{name, value}}); }
    /// Scans the whole area coarsely. Not from a feeder, which would spend a page.
    void preview();
    bool hasPreview() const { return m_options.isFeeder() != true; }
    /// False, with nothing started, when there is no scanner that is ready, or will be as soon as it has
    /// taken the last settings.
    bool acquire(const settings::Twain& choice, const QString& temporaryFolder,
                 const std::optional<QStringList>& replaceable = {}); ///< as for AcquiredPages
    void acquireNext();                                               ///< page of the document
    void finish();                                                    ///< there is no next page
    /// Pages that have arrived stay. Ends with finished().
    void cancel();

Q_SIGNALS:
    void stateChanged();
    void devicesChanged();
    void optionsChanged();
    void progressed(const tarsel::ScanProgress& progress);
    void previewArrived(const tarsel::Picture& picture);
    void pageArrived(const tarsel::ScannedPage& page, const tarsel::AcquiredFile& file);
    /// An acquisition or a preview has ended. A document may still get another page.
    void finished(const tarsel::ScanFaults& faults);
    void refused(const tarsel::TrappedError& error); ///< a setting

private:
    void setState(State state);
    void takeDevices(const std::vector<ScanDevice>& devices);
    void takeOptions(const ScanOptions& options);
    void takePage(const ScannedPage& page, const AcquiredFile& file);
    void takeEnd(const ScanEnd& end);
    void takeFailure(const TrappedError& error);
    void sendSettings();
    void remember(const ScanSetting& setting);
    void noteUnsaved(const ScannedPage& page, const TrappedError& error);
    void start(bool isPreview);
    void startWhenReady();
    bool asksForNextPage() const;

    Scanner& m_scanner;
    ScanMemory& m_memory;
    State m_state = State::NoDevice;
    std::vector<ScanDevice> m_devices;
    ScanOptions m_options;
    std::optional<TrappedError> m_reason;
    std::vector<ScanSetting> m_waiting;   ///< while the scanner is at work
    std::optional<ScanRequest> m_request; ///< starts when the scanner has taken the settings
    bool m_isRestoring = false;           ///< values that were remembered, which may not fit any more
    bool m_isStopping = false;
    settings::Twain m_choice; ///< of the acquisition
    std::shared_ptr<AcquiredPages> m_pages;
    ScanFaults m_faults;
    int m_pagesOfRun = 0;
    int m_nextNumber = 1;
};

} // namespace tarsel
