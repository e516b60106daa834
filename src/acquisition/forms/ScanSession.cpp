// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/forms/ScanSession.h"

#include "acquisition/scanner/ScannerErrors.h"

#include <algorithm>
#include <utility>

namespace tarsel {

namespace {

bool isDocument(const settings::Twain& choice) {
    return choice.Acquire == 1 && choice.FileOption == 1;
}

/// A later value takes the place of an earlier one, at the end.
void append(std::vector<ScanSetting>& settings, const ScanSetting& setting) {
    std::erase_if(settings, [&](const ScanSetting& each) { return each.name == setting.name; });
    settings.push_back(setting);
}

} // namespace

ScanSession::ScanSession(Scanner& scanner, ScanMemory& memory) : m_scanner(scanner), m_memory(memory) {
    connect(&scanner, &Scanner::devicesListed, this, &ScanSession::takeDevices);
    connect(&scanner, &Scanner::opened, this, [this](const ScanOptions& options) {
        m_waiting = m_memory.settings;
        m_isRestoring = !m_waiting.empty();
        takeOptions(options);
    });
    connect(&scanner, &Scanner::optionsChanged, this, &ScanSession::takeOptions);
    connect(&scanner, &Scanner::progress, this, &ScanSession::progressed);
    connect(&scanner, &Scanner::pageArrived, this, &ScanSession::takePage);
    connect(&scanner, &Scanner::finished, this, &ScanSession::takeEnd);
    connect(&scanner, &Scanner::failed, this, &ScanSession::takeFailure);
}

void ScanSession::setState(State state) {
    m_state = state;
    Q_EMIT stateChanged();
}

// --- the scanner

void ScanSession::look() {
    m_devices.clear();
    m_options = {};
    m_reason.reset();
    setState(State::Looking);
    Q_EMIT devicesChanged();
    m_scanner.listDevices();
}

/// Opens the one that was used last, else the first one.
void ScanSession::takeDevices(const std::vector<ScanDevice>& devices) {
    m_devices = devices;
    const auto isLast = [this](const ScanDevice& each) { return each.name == m_memory.device; };
    const auto last = std::ranges::find_if(m_devices, isLast);
    if (m_devices.empty())
        setState(State::NoDevice);
    else
        choose(last != m_devices.end() ? last->name : m_devices.front().name);
    Q_EMIT devicesChanged();
}

void ScanSession::choose(const QString& device) {
    if (m_memory.device != device)
        m_memory = {device, {}};
    m_options = {};
    m_waiting.clear();
    m_reason.reset();
    setState(State::Opening);
    m_scanner.open(device);
}

/// What the user has changed since then is sent before anything is shown.
void ScanSession::takeOptions(const ScanOptions& options) {
    m_options = options;
    if (!m_waiting.empty() && (!isAcquiring() || m_request))
        return sendSettings();
    m_isRestoring = false;
    startWhenReady();
    if (m_state == State::Opening)
        setState(State::Ready);
    Q_EMIT optionsChanged();
}

void ScanSession::set(const std::vector<ScanSetting>& settings) {
    if (!m_scanner.isOpen() || isAcquiring())
        return;
    for (const ScanSetting& each : settings) {
        append(m_waiting, each);
        remember(each);
    }
    if (!m_scanner.isBusy())
        sendSettings();
}

void ScanSession::sendSettings() {
    m_scanner.setOptions(std::exchange(m_waiting, {}));
}

void ScanSession::remember(const ScanSetting& setting) {
    if (setting.value.index() > 0) // a button is pressed once
        append(m_memory.settings, setting);
}

/// A device that was lost stays lost until the user looks for it again.
void ScanSession::takeFailure(const TrappedError& error) {
    const bool wasSetting = m_state != State::Looking && m_state != State::Opening;
    if (m_scanner.isOpen()) {
        const bool isQuiet = std::exchange(m_isRestoring, false);
        if (isQuiet)
            m_memory.settings.clear();
        if (m_state == State::Opening || m_request.has_value())
            setState(State::Ready);
        m_request.reset();
        Q_EMIT optionsChanged();
        if (!isQuiet)
            Q_EMIT refused(error);
        return;
    }
    m_waiting.clear();
    m_request.reset();
    m_options = {};
    m_reason = error;
    setState(State::NoDevice);
    if (wasSetting)
        Q_EMIT refused(error);
}

// --- pages

void ScanSession::preview() {
    if (m_state == State::Ready && hasPreview())
        start(true);
}

bool ScanSession::acquire(const settings::Twain& choice, const QString& temporaryFolder,
                          const std::optional<QStringList>& replaceable) {
    if (m_state != State::Ready || !m_scanner.isOpen())
        return false;
    m_choice = choice;
    m_pages = std::make_shared<AcquiredPages>(choice, temporaryFolder, replaceable);
    m_faults = {};
    m_pagesOfRun = 0;
    if (isDocument(choice))
        m_nextNumber = 1;
    start(false);
    return true;
}

void ScanSession::acquireNext() {
    if (m_state == State::AwaitingPage)
        start(false);
}

void ScanSession::start(bool isPreview) {
    ScanRequest request;
    request.isPreview = isPreview;
    request.firstNumber = m_nextNumber;
    if (!isPreview)
        request.save = [pages = m_pages](const ScannedPage& page) { return pages->subAcquirePage(page); };
    m_isStopping = false;
    m_faults.scanner.reset();
    m_faults.cut.clear();
    m_request = request;
    setState(isPreview ? State::Previewing : State::Scanning);
    startWhenReady();
}

void ScanSession::startWhenReady() {
    if (m_request && m_scanner.TwainReady())
        m_scanner.TwainAcquire(*std::exchange(m_request, std::nullopt));
}

void ScanSession::takePage(const ScannedPage& page, const AcquiredFile& file) {
    if (m_state == State::Previewing) {
        Q_EMIT previewArrived(page.picture);
        return;
    }
    ++m_pagesOfRun;
    m_nextNumber = m_scanner.TwainImageCount() + 1;
    if (file.error)
        noteUnsaved(page, *file.error);
    if (page.isCut)
        m_faults.cut.push_back(page.number);
    Q_EMIT pageArrived(page, file);
}

void ScanSession::noteUnsaved(const ScannedPage& page, const TrappedError& error) {
    m_faults.unsaved.push_back(page.number);
    const auto isSame = [&](const TrappedError& each) { return each.description == error.description; };
    if (std::ranges::none_of(m_faults.errors, isSame))
        m_faults.errors.push_back(error);
}

/// A flatbed has one page at a time, a document may have more; one that failed can be tried again. Nothing is
/// added to a document that lacks a page.
bool ScanSession::asksForNextPage() const {
    return m_state == State::Scanning && isDocument(m_choice) && m_options.isFeeder() != true &&
           m_pagesOfRun > 0 && m_faults.unsaved.empty() && m_scanner.isOpen();
}

void ScanSession::takeEnd(const ScanEnd& end) {
    if (!isAcquiring())
        return;
    const bool wasStopped = std::exchange(m_isStopping, false);
    const bool wasPreview = m_state == State::Previewing;
    if (wasPreview)
        m_faults = {.isPreview = true};
    if (end.reason == ScanEndReason::Failed)
        m_faults.scanner = end.error;
    else if (end.reason == ScanEndReason::Cancelled && !wasStopped) // but at the device
        m_faults.scanner = scannerError(ScannerFault::Cancelled, m_memory.device);
    setState(asksForNextPage() ? State::AwaitingPage : State::Ready);
    Q_EMIT finished(m_faults);
    if (!m_scanner.isOpen()) // a driver that crashed, or had to be ended
        choose(m_memory.device);
    else if (!m_waiting.empty())
        sendSettings();
}

void ScanSession::finish() {
    if (m_state != State::AwaitingPage)
        return;
    setState(State::Ready);
}

void ScanSession::cancel() {
    if (!isAcquiring() || std::exchange(m_isStopping, true))
        return;
    Q_EMIT stateChanged();
    m_scanner.cancel();
}

} // namespace tarsel
