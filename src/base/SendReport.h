// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ErrorReport.h"

#include <QString>

namespace tarsel {

/// The address that sends a report to the maker's web form. The values stand in it as they are, without any
/// encoding. `email` may be empty: a fixed reply address of the build stands in.
QString errorReportUrl(const ErrorReport& report, const QString& email, const QString& description);

/// Sends a report as the user worded it, and thanks.
void sendErrorReport(const ErrorReport& report, const QString& email, const QString& description);

/// Opens `url` in a hidden browser and shows `message`; without a registered browser the system's default
/// handler gets the address, and no message is shown. False, with a message to the user, when there is no
/// connection.
bool SendReport(const QString& url, const QString& message);

/// Closes the first open window of an earlier report's answer; false when there is none.
bool CloseSuccessWindow();

/// Whether the system has a connection to the internet.
bool IsOnline();

} // namespace tarsel
