// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/RowResult.h"

#include <QCoreApplication>

namespace tarsel {

namespace {

/// Empty where a remark says why.
QString skipText(SkipReason reason) {
    switch (reason) {
    case SkipReason::Exists:
        return QCoreApplication::translate("RowResult", "exists already");
    case SkipReason::DryRun:
        return QCoreApplication::translate("RowResult", "dry run");
    case SkipReason::Cancelled:
        return QCoreApplication::translate("RowResult", "cancelled");
    case SkipReason::NotReached:
        return QCoreApplication::translate("RowResult", "not reached");
    case SkipReason::Removed:
        return QCoreApplication::translate("RowResult", "the row was removed during the run");
    case SkipReason::Unchanged:
        return QCoreApplication::translate("RowResult", "unchanged since the last run");
    case SkipReason::NotNeeded:
    case SkipReason::None:
    case SkipReason::NoPicture:
    case SkipReason::Refused:
    case SkipReason::TooLarge:
        break;
    }
    return {};
}

} // namespace

QString rowStateText(RowState state) {
    switch (state) {
    case RowState::Written:
        return QStringLiteral("written");
    case RowState::Skipped:
        return QStringLiteral("skipped");
    case RowState::Failed:
        return QStringLiteral("failed");
    }
    return {};
}

QString RowResult::reason() const {
    QStringList all = remarks + notes;
    if (const QString text = skipText(skipped); !text.isEmpty())
        all.prepend(text);
    return all.join(QStringLiteral("; "));
}

void RowResult::skip(SkipReason why, const QString& fact) {
    state = RowState::Skipped;
    skipped = why;
    if (!fact.isEmpty())
        remarks.prepend(fact);
}

} // namespace tarsel
