// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/IgnoringErrors.h"
#include "base/TrappedError.h"

#include <exception>
#include <utility>

namespace tarsel {

/// What the program says it is doing. Set before work on the main thread, shown in error reports.
inline QString TrappingString;

/// Title of all message boxes: application title, a blank, the comment of the version record. Empty until set
/// up.
inline QString ApplicationName;

/// The fields of an error report, filled by GlobalErrorHandler.
struct ErrorReport {
    QString ErrApplicationVersion; ///< major "." minor "." revision
    QString ErrRoutine;            ///< name of the routine that trapped, such as "FrmMain.subEnd"
    qint16 ErrLine = 0;            ///< source line of the failing step
    QString ErrTrappingString;     ///< copy of TrappingString
    QString ErrSystem;             ///< error number, " - ", description
};

/// The report that GlobalErrorHandler filled last.
const ErrorReport& lastErrorReport();

/// Fills the report and shows it through the Desktop.
void GlobalErrorHandler(const QString& description, qint32 number, qint16 line, const QString& routine);

/// Hands the exception that is being handled to GlobalErrorHandler. Lines beyond 16 bits are reported as the
/// largest one; an exception that isn't a TrappedError has no known line and reports 0.
void reportTrapped(const char* routine);

/// Ends the program: the trap and its report belong to the main thread.
void requireMainThread(const char* routine);

/// Runs `body` and, when it throws, reports the error under the routine's name and returns normally.
/// Returns true when the body ran to its end.
template <class Body>
bool trap(const char* routine, Body&& body) {
    requireMainThread(routine);
    try {
        std::forward<Body>(body)();
        return true;
    } catch (const TrappedError&) {
        reportTrapped(routine);
    } catch (const std::exception&) {
        reportTrapped(routine);
    }
    return false;
}

} // namespace tarsel
