// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/scanner/PackedRecords.h"
#include "acquisition/scanner/ScannerProtocol.h"

#include <sane/sane.h>
#include <span>
#include <string>

namespace tarsel::scanner {

/// The scanner that is open, and the drivers' library, which is started for the first request.
class Device {
public:
    Device() = default;
    ~Device();
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    /// Starts the library again: some drivers look for devices only then.
    SANE_Status list(PackedWriter& devices);
    SANE_Status open(const std::string& name);
    void close();
    SANE_Status readOptions(PackedWriter& options) const;
    /// `taken` is what the device made of a word.
    SANE_Status set(const ScannerRequest& request, const std::string& text, SANE_Int& info,
                    SANE_Word& taken) const;
    /// After a failure of these two the device is at rest.
    SANE_Status start(ScannerFrame& frame);
    /// The next bytes; SANE_STATUS_EOF at the end of the frame.
    SANE_Status read(std::span<std::byte> bytes, SANE_Int& count);
    /// Brings the device to rest; nothing when it is.
    void rest();

private:
    SANE_Status startLibrary();
    void endLibrary();
    SANE_Status ended(SANE_Status status);

    bool m_isStarted = false;
    SANE_Handle m_handle = nullptr;
};

/// SIGINT asks for an end of the acquisition. The first one is seen between two reads; at the second one the
/// driver is interrupted wherever it is. A process that doesn't get to its end then, for instance since
/// nobody is there any more to kill it, ends some seconds later.
void watchForCancel();
bool isCancelled();
void forgetCancel();

} // namespace tarsel::scanner
