// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/RowResult.h"

#include <QString>

namespace tarsel::cli {

class Terminal;

/// Prints what becomes of each row, as text or as JSON, and counts.
class RowReport {
public:
    RowReport(Terminal& terminal, bool json) : m_terminal(terminal), m_json(json) {}

    void add(const RowResult& result);
    /// A picture without a row: reported as failed row 0.
    void addMissing(const QString& path);
    void summarise();
    /// Of a dry run all is done when nothing but the writing is missing.
    bool allDone(bool dryRun) const;

private:
    Terminal& m_terminal;
    bool m_json;
    int m_written = 0;
    int m_incomplete = 0; ///< with a warning: a damaged source, a failed task
    int m_skipped = 0;
    int m_failed = 0;
    int m_dry = 0;
};

} // namespace tarsel::cli
