// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace tarsel {

enum class RowState { Written, Skipped, Failed };
QString rowStateText(RowState state); ///< "written", "skipped", "failed": the same in every language

/// Why a row was skipped.
enum class SkipReason {
    None,
    Exists,     ///< a file of the target's name is there and must not be replaced
    DryRun,     ///< nothing but the writing is missing
    Cancelled,  ///< the run was cancelled before the row or while it was loaded
    NotReached, ///< the run ended in an error before
    NoPicture,  ///< the source holds no picture; the first remark says why
    Removed,    ///< the row was taken out of the list during the run
    Refused,    ///< its file would replace a source; the first remark says which
    TooLarge,   ///< no file keeps to the wanted size; the first remark says why
    Unchanged,  ///< its files of the last run are still right
    NotNeeded   ///< a file of an earlier run, not a row; the first remark says what became of it
};

/// Whether nothing is left to do for what was skipped.
constexpr bool isDone(SkipReason reason) {
    return reason == SkipReason::Unchanged || reason == SkipReason::NotNeeded;
}

/// What became of one row of a run.
struct RowResult {
    int row = 0; ///< from 1; 0 for something that isn't a row
    QString source;
    QString target; ///< empty while no name was built
    RowState state = RowState::Failed;
    SkipReason skipped = SkipReason::None;
    /// What the user should know: the error of a failed row, that the source could be read in part only, that
    /// the task list ended early and the picture is written as far as it came, that a part of the name is
    /// unknown, that the file replaces another row's, where the row's replaced original was kept.
    QStringList remarks;
    /// What is said of a row that was written as it should be, such as about XMP data that could not follow.
    QStringList notes = {};

    /// Why the row was skipped, the remarks, the notes; empty for a written row without any.
    QString reason() const;
    void remark(const QString& text) { remarks << text; }
    /// `fact` is the first remark then.
    void skip(SkipReason why, const QString& fact = {});
};

} // namespace tarsel
