// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tasks/TaskList.h"
#include "tasks/modProcessTasks.h"
#include "tests/support/Boxes.h"
#include "tests/support/TestPictures.h"

#include <ostream>

namespace tarsel::test {

/// A row of a kind with its first columns.
inline TaskRow taskRow(int kind, const QStringList& columns) {
    TaskRow row{QString::number(kind), {}, {}};
    if (const TaskKind* known = taskKind(kind))
        row.key = QString::fromLatin1(known->rowKey);
    std::copy(columns.begin(), columns.end(), row.columns.begin());
    return row;
}

inline QStringList texts(std::initializer_list<const char*> columns) {
    QStringList list;
    for (const char* column : columns)
        list << QString::fromUtf8(column);
    return list;
}

inline TaskRow taskRow(int kind, std::initializer_list<const char*> columns) {
    return taskRow(kind, texts(columns));
}

/// A Text row of 20 point, black.
inline TaskRow textRow(const char* position, const char* x = "0", const char* y = "0",
                       const char* text = "Tarsel") {
    return taskRow(10, {"True", "False", "True", "0", "0", "DejaVu Sans", "20", "False", "False", "False",
                        "0", "0", "0", position, text, x, y});
}

/// A picture in which no two neighbours are alike, and left differs from right, top from bottom.
inline Picture unevenPicture(int width, int height) {
    return pictureOf(width, height, 3, [](int x, int y) {
        return Rgb{std::uint8_t(40 + (x * 7) % 160), std::uint8_t(30 + (y * 11) % 170),
                   std::uint8_t(20 + (x * 3 + y * 5) % 180)};
    });
}

/// Replays rows on a box, all of them.
inline bool replayAll(ImageBox& box, const std::vector<TaskRow>& rows) {
    TaskList tasks;
    for (const TaskRow& row : rows)
        tasks.append(row);
    return !modProcessTasks::subProcessPages(tasks.lvEdit, tasks.lvEditBatch, box, nullptr, true);
}

/// The picture that rows make of an uneven picture.
inline Picture replayed(int width, int height, const std::vector<TaskRow>& rows) {
    ImageBox box = boxWith(unevenPicture(width, height));
    replayAll(box, rows);
    return box.picture();
}

} // namespace tarsel::test

namespace tarsel {
inline void PrintTo(const Picture& picture, std::ostream* out) {
    *out << picture.width() << " x " << picture.height() << " x " << picture.channels();
}
} // namespace tarsel

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
