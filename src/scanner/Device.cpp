// SPDX-License-Identifier: GPL-3.0-or-later
#include "scanner/Device.h"

#include "scanner/OptionList.h"

#include <csignal>
#include <unistd.h>
#include <utility>

namespace tarsel::scanner {

namespace {

constexpr unsigned secondsToEnd = 10;

volatile std::sig_atomic_t cancelRequests = 0;
/// The device in acquisition, for the signal handler, which may call sane_cancel and no other function.
volatile SANE_Handle running = nullptr;

void onCancel(int) {
    ::alarm(secondsToEnd);
    cancelRequests = cancelRequests + 1;
    if (cancelRequests > 1 && running)
        ::sane_cancel(running);
}

} // namespace

void watchForCancel() {
    struct sigaction action = {};
    action.sa_handler = onCancel;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    ::sigaction(SIGINT, &action, nullptr);
}

bool isCancelled() {
    return cancelRequests > 0;
}

void forgetCancel() {
    ::alarm(0);
    cancelRequests = 0;
}

Device::~Device() {
    close();
    endLibrary();
}

SANE_Status Device::startLibrary() {
    if (m_isStarted)
        return SANE_STATUS_GOOD;
    SANE_Int version = 0;
    const SANE_Status status = ::sane_init(&version, nullptr);
    m_isStarted = status == SANE_STATUS_GOOD;
    return status;
}

void Device::endLibrary() {
    if (std::exchange(m_isStarted, false))
        ::sane_exit();
}

SANE_Status Device::list(PackedWriter& devices) {
    close();
    endLibrary();
    const SANE_Device** found = nullptr;
    SANE_Status status = startLibrary();
    if (status == SANE_STATUS_GOOD)
        status = ::sane_get_devices(&found, SANE_FALSE);
    if (status != SANE_STATUS_GOOD)
        return status;
    for (; found && *found; ++found)
        for (const SANE_String_Const text :
             {(*found)->name, (*found)->vendor, (*found)->model, (*found)->type})
            devices.text(text);
    return status;
}

SANE_Status Device::open(const std::string& name) {
    close();
    const SANE_Status status = startLibrary();
    return status == SANE_STATUS_GOOD ? ::sane_open(name.c_str(), &m_handle) : status;
}

void Device::close() {
    rest();
    if (m_handle)
        ::sane_close(std::exchange(m_handle, nullptr));
}

SANE_Status Device::readOptions(PackedWriter& options) const {
    return m_handle ? packOptions(m_handle, options) : SANE_STATUS_INVAL;
}

SANE_Status Device::set(const ScannerRequest& request, const std::string& text, SANE_Int& info,
                        SANE_Word& taken) const {
    return m_handle ? setOption(m_handle, request, text, info, taken) : SANE_STATUS_INVAL;
}

SANE_Status Device::start(ScannerFrame& frame) {
    if (!m_handle)
        return SANE_STATUS_INVAL;
    running = m_handle;
    SANE_Parameters parameters = {};
    SANE_Status status = ::sane_start(m_handle);
    if (status == SANE_STATUS_GOOD)
        status = ::sane_get_parameters(m_handle, &parameters);
    frame = {std::int32_t(parameters.format), parameters.last_frame, parameters.bytes_per_line,
             parameters.pixels_per_line,      parameters.lines,      parameters.depth};
    return ended(status);
}

SANE_Status Device::read(std::span<std::byte> bytes, SANE_Int& count) {
    count = 0;
    const SANE_Status status =
        ::sane_read(m_handle, reinterpret_cast<SANE_Byte*>(bytes.data()), SANE_Int(bytes.size()), &count);
    return ended(status);
}

/// What a driver says to an interrupted call doesn't count.
SANE_Status Device::ended(SANE_Status status) {
    if (isCancelled())
        status = SANE_STATUS_CANCELLED;
    if (status != SANE_STATUS_GOOD && status != SANE_STATUS_EOF)
        rest();
    return status;
}

void Device::rest() {
    const SANE_Handle handle = running;
    running = nullptr;
    if (handle)
        ::sane_cancel(handle);
}

} // namespace tarsel::scanner
