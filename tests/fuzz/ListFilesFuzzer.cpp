// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ErrorTrap.h"
#include "collections/BasketFile.h"
#include "tasks/TaskFile.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdlib>

using namespace tarsel;
using namespace tarsel::modSaveOpenImageList;

namespace {

void require(bool holds) {
    if (!holds)
        std::abort();
}

QString written(const char* name, const QByteArray& bytes) {
    static const QTemporaryDir folder;
    const QString path = folder.filePath(QString::fromLatin1(name));
    QFile::remove(path);
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    return path;
}

/// However a reading ends, the three lists hold the same rows.
void tryTaskFile(const QByteArray& bytes) {
    TaskList tasks;
    ignoringErrors([&] { readTaskBasket(written("list.tbf", bytes), tasks); });
    require(tasks.lvEdit.count() == tasks.count() && tasks.lvEditPreview.count() == tasks.count());
}

/// No file names more pictures than it has bytes.
void tryBasketFile(const char* name, const QByteArray& bytes) {
    ignoringErrors(
        [&] { require(qsizetype(readBasketEntries(written(name, bytes)).size()) <= bytes.size()); });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    tryTaskFile(bytes);
    tryBasketFile("basket.ibf", bytes);
    tryBasketFile("basket.ibd", bytes);
    return 0;
}
