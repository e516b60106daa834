// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/TerminalDialogs.h"

#include "base/ErrorReport.h"
#include "cli/Terminal.h"

namespace tarsel::cli {

MessageAnswer TerminalDialogs::messageBox(const QString& text, MessageIcon, MessageButtons buttons,
                                          const QString&) {
    m_terminal.message(QStringLiteral("tarsel: ") + text.simplified());
    if (buttons == MessageButtons::Ok)
        return MessageAnswer::Ok;
    return buttons == MessageButtons::YesNo ? MessageAnswer::No : MessageAnswer::Cancel;
}

void TerminalDialogs::showErrorReport(const ErrorReport& report) {
    m_terminal.message(QStringLiteral("tarsel: ") + report.ErrSystem);
}

} // namespace tarsel::cli
