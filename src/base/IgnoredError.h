// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <source_location>

namespace tarsel {

/// Logs an error that a caller goes on without, at debug level in the category of the library in which
/// `where` is: "tarsel.codecs" for src/codecs. Off by default; QT_LOGGING_RULES="tarsel.*.debug=true" shows
/// all.
void logIgnored(const QString& description, std::source_location where = std::source_location::current());

} // namespace tarsel
