// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/TrappedError.h"

#include <exception>
#include <source_location>
#include <utility>

namespace tarsel {

/// Logs an error that a caller goes on without, at debug level in the category of the library in which
/// `where` is: "tarsel.codecs" for src/codecs. Off by default; QT_LOGGING_RULES="tarsel.*.debug=true" shows
/// all.
void logIgnored(const QString& description, std::source_location where = std::source_location::current());

/// Runs `body` where errors are to be ignored, which logs them. Returns true when it ran to its end.
template <class Body>
bool ignoringErrors(Body&& body, std::source_location where = std::source_location::current()) {
    try {
        std::forward<Body>(body)();
        return true;
    } catch (const TrappedError& error) {
        logIgnored(error.description, where);
    } catch (const std::exception& error) {
        logIgnored(QString::fromUtf8(error.what()), where);
    }
    return false;
}

} // namespace tarsel
