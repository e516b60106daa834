// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ErrorTrap.h"
#include "collections/BasketFile.h"
#include "tasks/TaskFile.h"
#include "tests/fuzz/Fuzzers.h"

#include <QFile>
#include <QTemporaryDir>

using namespace tarsel;
using fuzz::require;
using namespace tarsel::modSaveOpenImageList;

namespace {

QString written(const char* name, const QByteArray& bytes) {
    static const QTemporaryDir folder;
    const QString path = folder.filePath(QString::fromLatin1(name));
    QFile::remove(path);
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(), "the input can be written");
    return path;
}

void tryTaskFile(const QByteArray& bytes) {
    TaskList tasks;
    ignoringErrors([&] { readTaskBasket(written("list.tbf", bytes), tasks); });
    require(tasks.lvEdit.count() == tasks.count() && tasks.lvEditPreview.count() == tasks.count(),
            "the three lists hold the same rows, however the reading ends");
}

void tryBasketFile(const char* name, const QByteArray& bytes) {
    qsizetype entries = 0;
    ignoringErrors([&] { entries = qsizetype(readBasketEntries(written(name, bytes)).size()); });
    require(entries <= bytes.size(), "no file names more pictures than it has bytes");
}

} // namespace

void fuzz::readListFiles(const QByteArray& bytes) {
    tryTaskFile(bytes);
    tryBasketFile("basket.ibf", bytes);
    tryBasketFile("basket.ibd", bytes);
}
