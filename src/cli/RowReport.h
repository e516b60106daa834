// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ErrorReport.h"
#include "base/Service.h"
#include "cli/TerminalDialogs.h"
#include "collections/RowResult.h"

#include <QList>
#include <QString>

namespace tarsel::cli {

/// Prints what becomes of each row, as text or as JSON, and counts. An error that is reported to the user
/// while this lives is shown only when it isn't the reason of a row.
class RowReport final : public TerminalDialogs {
public:
    RowReport(Terminal& terminal, bool json) :
        TerminalDialogs(terminal), m_terminal(terminal), m_json(json) {}

    void add(const RowResult& result);
    /// The row of a command that has one: a failure is a message, and a row only in JSON.
    void addAlone(const RowResult& result);
    /// Pictures without a row: each is reported as failed row 0, or as a cancelled one after a signal.
    void addMissing(const QStringList& paths);
    void summarise();
    /// Of a dry run all is done when nothing but the writing is missing.
    bool allDone(bool dryRun) const;
    void showErrorReport(const ErrorReport& report) override;

private:
    void showOtherErrors(const RowResult& row);

    const ServiceScope<Dialogs> m_inUse{*this};
    Terminal& m_terminal;
    bool m_json;
    int m_written = 0;
    int m_incomplete = 0; ///< with a warning: a damaged source, a failed task
    int m_skipped = 0;
    int m_done = 0; ///< of the skipped
    int m_failed = 0;
    int m_dry = 0;
    RowResult m_last;
    QList<ErrorReport> m_reports; ///< since the last row
};

} // namespace tarsel::cli
