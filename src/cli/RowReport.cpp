// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/RowReport.h"

#include "base/ErrorReport.h"
#include "cli/Interrupt.h"
#include "cli/JsonLine.h"
#include "cli/PictureFacts.h"
#include "cli/Terminal.h"

#include <QCoreApplication>
#include <algorithm>
#include <utility>

namespace tarsel::cli {

namespace {

QString jsonOf(const RowResult& result) {
    return JsonLine()
        .add("row", result.row)
        .add("source", result.source)
        .add("target", result.target)
        .add("state", rowStateText(result.state))
        .add("reason", result.reason())
        .text();
}

QString textOf(const RowResult& result) {
    QString text = QStringLiteral("%1  %2  %3")
                       .arg(result.row, 5)
                       .arg(rowStateText(result.state), -7)
                       .arg(result.source);
    if (!result.target.isEmpty())
        text += QStringLiteral(" -> ") + result.target;
    if (const QString reason = result.reason(); !reason.isEmpty())
        text += QStringLiteral(" (%1)").arg(reason);
    return text;
}

/// The report has the error's number before the reason, and maybe the source's name.
bool isReasonOf(const RowResult& row, const ErrorReport& report) {
    return std::ranges::any_of(row.remarks, [&](const QString& remark) {
        return remark.contains(report.ErrSystem) || report.ErrSystem.endsWith(remark);
    });
}

} // namespace

void RowReport::add(const RowResult& result) {
    switch (result.state) {
    case RowState::Written:
        ++m_written;
        m_incomplete += result.remarks.isEmpty() ? 0 : 1;
        break;
    case RowState::Skipped: {
        const bool isDry = result.skipped == SkipReason::DryRun;
        ++(isDry ? m_dry : m_skipped);
        m_done += isDone(result.skipped) ? 1 : 0;
        m_incomplete += isDry && !result.remarks.isEmpty() ? 1 : 0;
        break;
    }
    case RowState::Failed:
        ++m_failed;
        break;
    }
    showOtherErrors(result);
    m_terminal.result(m_json ? jsonOf(result) : textOf(result));
}

void RowReport::addAlone(const RowResult& result) {
    if (result.state != RowState::Failed)
        return add(result);
    ++m_failed;
    showOtherErrors(result);
    m_terminal.message(QStringLiteral("tarsel: ") + result.reason());
    if (m_json)
        m_terminal.result(jsonOf(result));
}

void RowReport::showErrorReport(const ErrorReport& report) {
    if (!isReasonOf(m_last, report))
        m_reports << report;
}

/// A row is recorded after the error of one of its tasks, and before an error that ends the run.
void RowReport::showOtherErrors(const RowResult& row) {
    m_last = row;
    for (const ErrorReport& report : std::exchange(m_reports, {}))
        if (!isReasonOf(row, report))
            TerminalDialogs::showErrorReport(report);
}

void RowReport::addMissing(const QStringList& paths) {
    for (const QString& path : paths) {
        RowResult result;
        result.source = path;
        if (wasInterrupted()) // it may be whole: nobody has got to it
            result.skip(SkipReason::Cancelled);
        else
            result.remark(unreadableReason(path));
        add(result);
    }
}

void RowReport::summarise() {
    showOtherErrors(m_last);
    static constexpr const char* sentences[2][2] = {
        {QT_TRANSLATE_NOOP("CommandLine", "tarsel: %1 written, %2 skipped, %3 failed"),
         QT_TRANSLATE_NOOP("CommandLine", "tarsel: %1 written, %2 skipped, %3 failed, %5 would be written")},
        {QT_TRANSLATE_NOOP("CommandLine", "tarsel: %1 written, %2 skipped, %3 failed, %4 with a warning"),
         QT_TRANSLATE_NOOP(
             "CommandLine",
             "tarsel: %1 written, %2 skipped, %3 failed, %4 with a warning, %5 would be written")},
    };
    QString sentence = QCoreApplication::translate("CommandLine", sentences[m_incomplete > 0][m_dry > 0]);
    const int counts[] = {m_written, m_skipped, m_failed, m_incomplete, m_dry};
    for (int place = 0; place < 5; ++place)
        sentence.replace(QLatin1Char('%') + QString::number(place + 1), QString::number(counts[place]));
    m_terminal.message(sentence);
}

bool RowReport::allDone(bool dryRun) const {
    return m_skipped == m_done && m_failed == 0 && m_incomplete == 0 && (dryRun || m_dry == 0);
}

} // namespace tarsel::cli
