// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/TrappedError.h"

#include <optional>

namespace tarsel {

/// What a scanner failed with: a status of the scanner service, or what became of its process.
enum class ScannerFault {
    Unsupported,
    Cancelled,
    DeviceBusy,
    Invalid,
    Jammed,
    NoDocuments,
    CoverOpen,
    InputOutput,
    NoMemory,
    AccessDenied,
    Warming,
    Locked,
    // What only this side knows.
    NoDevice,       ///< the list is empty
    NotOpen,        ///< no device is open, or it was lost
    NotStarted,     ///< the process can't be started
    Crashed,        ///< the process died
    Hanging,        ///< the process doesn't answer
    BrokenProtocol, ///< the process doesn't make sense
    EmptyPage,      ///< a page without a line
    UnknownFrame,   ///< pixels in a form that is not supported
    UnknownOption,
    BadValue, ///< of an option
};

/// The fault of a SANE_Status; nothing for success and the end of a frame.
std::optional<ScannerFault> faultOfStatus(int status);

/// The error that says what has happened and what to do about it. `subject` is the device; of the last two
/// faults the option; of NotStarted the program.
TrappedError scannerError(ScannerFault fault, const QString& subject,
                          std::source_location where = std::source_location::current());

[[noreturn]] void failScanning(ScannerFault fault, const QString& subject,
                               std::source_location where = std::source_location::current());

} // namespace tarsel
