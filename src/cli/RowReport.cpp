// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/RowReport.h"

#include "base/TrappedError.h"
#include "cli/JsonLine.h"
#include "cli/PictureFacts.h"
#include "cli/Terminal.h"
#include "codecs/PictureFile.h"
#include "collections/clsFileInfo.h"
#include "imaging/ImageBox.h"

#include <QCoreApplication>

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

/// The first page of a document that can't be read, and why; empty when all can.
QString badPageOf(const QString& path) {
    const int pages = ImageBox::PageCount(path);
    int page = 1;
    try {
        const PictureFile file(path);
        ImageBox box;
        for (; page <= pages; ++page)
            box.LoadPage(file, page);
    } catch (const TrappedError& error) {
        return QCoreApplication::translate("CommandLine", "page %1 of %2: %3")
            .arg(page)
            .arg(pages)
            .arg(error.description);
    }
    return {};
}

/// Why a picture has no row, or not all of its pages: its files are read once more to find out.
QString unreadableReason(const QString& path) {
    if (!clsFileInfo::CheckIfFileExists(path))
        return QCoreApplication::translate("CommandLine", "missing, or not readable");
    PictureFacts facts;
    readPictureFacts(path, facts);
    if (facts.pages > 1 || (facts.pages == 0 && ImageBox::PageCount(path) > 1))
        if (const QString fact = badPageOf(path); !fact.isEmpty())
            return fact;
    return facts.reason.isEmpty() ? QCoreApplication::translate("CommandLine", "can't be read as a picture")
                                  : facts.reason;
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
        m_incomplete += isDry && !result.remarks.isEmpty() ? 1 : 0;
        break;
    }
    case RowState::Failed:
        ++m_failed;
        break;
    }
    m_terminal.result(m_json ? jsonOf(result) : textOf(result));
}

void RowReport::addMissing(const QString& path) {
    RowResult result;
    result.source = path;
    result.remark(unreadableReason(path));
    add(result);
}

void RowReport::summarise() {
#define TEXT(text) QT_TRANSLATE_NOOP("CommandLine", text)
    static constexpr const char* sentences[2][2] = {
        {TEXT("tarsel: %1 written, %2 skipped, %3 failed"),
         TEXT("tarsel: %1 written, %2 skipped, %3 failed, %5 would be written")},
        {TEXT("tarsel: %1 written, %2 skipped, %3 failed, %4 with a warning"),
         TEXT("tarsel: %1 written, %2 skipped, %3 failed, %4 with a warning, %5 would be written")},
    };
#undef TEXT
    QString sentence = QCoreApplication::translate("CommandLine", sentences[m_incomplete > 0][m_dry > 0]);
    const int counts[] = {m_written, m_skipped, m_failed, m_incomplete, m_dry};
    for (int place = 0; place < 5; ++place)
        sentence.replace(QLatin1Char('%') + QString::number(place + 1), QString::number(counts[place]));
    m_terminal.message(sentence);
}

bool RowReport::allDone(bool dryRun) const {
    return m_skipped == 0 && m_failed == 0 && m_incomplete == 0 && (dryRun || m_dry == 0);
}

} // namespace tarsel::cli
