// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ErrorTrap.h"
#include "collections/BasketFile.h"
#include "publishing/MetadataBasket.h"
#include "tasks/TaskCheck.h"
#include "tasks/TaskFile.h"
#include "tasks/TaskWords.h"
#include "tests/fuzz/Fuzzers.h"

using namespace tarsel;
using fuzz::require;
using namespace tarsel::modSaveOpenImageList;

namespace {

/// Any row can be checked and shown; one that passes has only values that can be read.
void tryRow(const TaskRow& row) {
    const bool passes = checkRow(row).state == TaskCheck::State::Ok;
    for (const TaskColumn& column : columnsRead(row))
        require(ignoringErrors([&] { column.value(column.text(row)); }) || !passes,
                "a row that passes the check has only values that can be read");
    require(columnsRead(row).empty() == parametersInWords(row).isEmpty(), "each parameter has its words");
}

void tryTaskFile(const QByteArray& bytes) {
    TaskList tasks;
    ignoringErrors([&] { readTaskBasket(fuzz::inputFile("list.tbf", bytes), tasks); });
    require(tasks.lvEdit.count() == tasks.count() && tasks.lvEditPreview.count() == tasks.count(),
            "the three lists hold the same rows, however the reading ends");
    for (int i = 0; i < tasks.count(); ++i)
        tryRow(tasks.row(i));
}

void tryBasketFile(const char* name, const QByteArray& bytes) {
    qsizetype entries = 0;
    ignoringErrors([&] { entries = qsizetype(readBasketEntries(fuzz::inputFile(name, bytes)).size()); });
    require(entries <= bytes.size(), "no file names more pictures than it has bytes");
}

void tryMetadataBasket(const QByteArray& bytes) {
    QStringList lines;
    ignoringErrors([&] { readMetadataBasket(fuzz::inputFile("list.mbf", bytes), lines); });
    require(lines.size() <= bytes.size(), "no file has more lines than bytes");
}

} // namespace

void fuzz::readListFiles(const QByteArray& bytes) {
    tryTaskFile(bytes);
    tryBasketFile("basket.ibf", bytes);
    tryBasketFile("basket.ibd", bytes);
    tryMetadataBasket(bytes);
}
