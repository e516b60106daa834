// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/scanner/ScannerErrors.h"

#include <QCoreApplication>

namespace tarsel {

namespace {

/// In the order of SANE_Status: 0 and 5 are no faults. The last two are of later versions of the service.
constexpr std::optional<ScannerFault> statusFaults[] = {
    {},
    ScannerFault::Unsupported,
    ScannerFault::Cancelled,
    ScannerFault::DeviceBusy,
    ScannerFault::Invalid,
    {},
    ScannerFault::Jammed,
    ScannerFault::NoDocuments,
    ScannerFault::CoverOpen,
    ScannerFault::InputOutput,
    ScannerFault::NoMemory,
    ScannerFault::AccessDenied,
    ScannerFault::Warming,
    ScannerFault::Locked,
};

struct FaultText {
    ScannerFault fault;
    qint32 number;
    const char* text; ///< %1 is the subject
};

using enum ErrorNumber::Value;

constexpr FaultText texts[] = {
    {ScannerFault::Unsupported, InvalidCall,
     QT_TRANSLATE_NOOP("ScannerErrors", "%1: the scanner does not support these settings. Choose others.")},
    {ScannerFault::Cancelled, Interrupted, QT_TRANSLATE_NOOP("ScannerErrors", "%1: scanning was cancelled.")},
    {ScannerFault::DeviceBusy, InvalidCall,
     QT_TRANSLATE_NOOP("ScannerErrors", "%1: the scanner is busy. Close other programs that use it, or wait "
                                        "until it is ready, and try again.")},
    {ScannerFault::Invalid, InvalidCall,
     QT_TRANSLATE_NOOP("ScannerErrors",
                       "%1: the scanner is not there, or it refuses its settings. Check that "
                       "it is switched on and connected, and refresh the list of scanners.")},
    {ScannerFault::Jammed, InvalidCall,
     QT_TRANSLATE_NOOP("ScannerErrors",
                       "%1: paper jam. Clear the document feeder, and put the remaining pages in again.")},
    {ScannerFault::NoDocuments, InvalidCall,
     QT_TRANSLATE_NOOP("ScannerErrors", "%1: the document feeder is empty. Put the pages in.")},
    {ScannerFault::CoverOpen, InvalidCall,
     QT_TRANSLATE_NOOP("ScannerErrors", "%1: the cover of the scanner is open. Close it.")},
    {ScannerFault::InputOutput, InvalidCall,
     QT_TRANSLATE_NOOP("ScannerErrors", "%1: the connection to the scanner failed. Check that it is switched "
                                        "on and plugged in.")},
    {ScannerFault::NoMemory, OutOfMemory,
     QT_TRANSLATE_NOOP("ScannerErrors",
                       "%1: not enough memory for the page. Choose a lower resolution or a smaller area.")},
    {ScannerFault::AccessDenied, PermissionDenied,
     QT_TRANSLATE_NOOP("ScannerErrors", "%1: no permission to use the scanner. Members of the group "
                                        "\"scanner\" may use it; a scanner in the network may ask for a "
                                        "password.")},
    {ScannerFault::Warming, InvalidCall,
     QT_TRANSLATE_NOOP("ScannerErrors", "%1: the scanner is warming up. Try again in a moment.")},
    {ScannerFault::Locked, InvalidCall,
     QT_TRANSLATE_NOOP("ScannerErrors", "%1: the scanner is locked for transport. Open its lock.")},
    {ScannerFault::NoDevice, InvalidCall,
     QT_TRANSLATE_NOOP("ScannerErrors",
                       "No scanner was found. Check that it is switched on and connected, and "
                       "that you are a member of the group \"scanner\".")},
    {ScannerFault::NotOpen, InvalidCall, QT_TRANSLATE_NOOP("ScannerErrors", "No scanner is open.")},
    {ScannerFault::NotStarted, InvalidCall,
     QT_TRANSLATE_NOOP("ScannerErrors", "%1 can't be started. Without it there is no scanning.")},
    {ScannerFault::Crashed, InvalidCall,
     QT_TRANSLATE_NOOP("ScannerErrors", "%1: the driver of the scanner crashed. Try again; when it happens "
                                        "again, switch the scanner off and on.")},
    {ScannerFault::Hanging, InvalidCall,
     QT_TRANSLATE_NOOP("ScannerErrors",
                       "%1: the scanner does not answer. Switch it off and on, and try again.")},
    {ScannerFault::BrokenProtocol, InvalidCall,
     QT_TRANSLATE_NOOP("ScannerErrors", "%1: the driver of the scanner sent data that make no sense.")},
    {ScannerFault::EmptyPage, InvalidCall,
     QT_TRANSLATE_NOOP("ScannerErrors", "%1: the scanner sent an empty page. Try again.")},
    {ScannerFault::UnknownFrame, InvalidCall,
     QT_TRANSLATE_NOOP("ScannerErrors",
                       "%1: the scanner sends pixels in a form that is not supported. Choose another mode.")},
    {ScannerFault::UnknownOption, InvalidCall,
     QT_TRANSLATE_NOOP("ScannerErrors", "The scanner has no option \"%1\" that can be set at present.")},
    {ScannerFault::BadValue, InvalidCall,
     QT_TRANSLATE_NOOP("ScannerErrors", "The scanner refuses this value of the option \"%1\".")},
};

} // namespace

std::optional<ScannerFault> faultOfStatus(int status) {
    const bool isKnown = status >= 0 && status < int(std::size(statusFaults));
    return isKnown ? statusFaults[status] : ScannerFault::BrokenProtocol;
}

TrappedError scannerError(ScannerFault fault, const QString& subject, std::source_location where) {
    for (const FaultText& text : texts) {
        if (text.fault != fault)
            continue;
        const QString sentence = QCoreApplication::translate("ScannerErrors", text.text);
        return {text.number, sentence.contains(u"%1") ? sentence.arg(subject) : sentence, where};
    }
    return {ErrorNumber::InvalidCall, errorText(ErrorNumber::InvalidCall), where};
}

void failScanning(ScannerFault fault, const QString& subject, std::source_location where) {
    throw scannerError(fault, subject, where);
}

} // namespace tarsel
