// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ErrorReport.h"
#include "base/IgnoringErrors.h"
#include "base/TrappedError.h"

#include <exception>
#include <optional>
#include <tuple> // std::ignore
#include <utility>

namespace tarsel {

/// What the program says it is doing. Set before work on the main thread, shown in error reports.
inline QString TrappingString;

/// Title of all message boxes: application title, a blank, the comment of the version record. Empty until set
/// up.
inline QString ApplicationName;

/// Fills a report, shows it to the user and returns it.
ErrorReport GlobalErrorHandler(const QString& description, qint32 number, qint16 line,
                               const QString& routine);

/// Passes the exception that is being handled to GlobalErrorHandler. Lines beyond 16 bits are reported as the
/// largest one; an exception that isn't a TrappedError has no known line and reports 0.
ErrorReport reportTrapped(const char* routine);

/// Ends the program: the trap and its report belong to the main thread.
void requireMainThread(const char* routine);

/// Runs `body` and, when it throws, reports the error under the routine's name and returns the report.
/// Returns nothing when the body ran to its end. A caller for whom both are the same says so with
/// `std::ignore = trap(…)`.
template <class Body>
[[nodiscard]] std::optional<ErrorReport> trap(const char* routine, Body&& body) {
    requireMainThread(routine);
    try {
        std::forward<Body>(body)();
        return std::nullopt;
    } catch (const TrappedError&) {
        return reportTrapped(routine);
    } catch (const std::exception&) {
        return reportTrapped(routine);
    }
}

} // namespace tarsel
