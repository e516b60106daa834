// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <array>

namespace tarsel {

/// Columns p1 to p17 of a task row.
constexpr int taskColumnCount = 17;

/// How the text of a column is read, and what the replay works with.
enum class ColumnType {
    Text,
    Path,        ///< of a file that the replay needs
    Flag,        ///< "True" or "False"
    Check,       ///< "0" or "1"; read as a flag
    Byte,        ///< 0 to 255
    Int16,       ///< rounded to the nearest, ties to even
    Int32,       ///< the same
    Number,      ///< 64-bit floating point
    ColorNumber, ///< decimal number, 0x00BBGGRR or a system colour
};

/// A column of one kind of task, readable only as its type.
template <ColumnType Type>
struct Column {
    int number; ///< from 1
};

/// One task with its parameters, all as text. TaskColumns.h has the columns of each kind.
struct TaskRow {
    QString kind; ///< decimal number of the kind
    QString key;  ///< "flip", "rotate", ..
    std::array<QString, taskColumnCount> columns;

    bool operator==(const TaskRow&) const = default;
    /// The value of a column, read at this moment. Error 13 for a text that is not of the column's type, 6
    /// for a number out of range.
    template <ColumnType Type>
    auto operator[](Column<Type> column) const;
};

} // namespace tarsel
