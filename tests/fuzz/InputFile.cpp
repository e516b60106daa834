// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/fuzz/Fuzzers.h"

#include <QFile>
#include <QTemporaryDir>

using namespace tarsel;

QString fuzz::inputFile(const char* name, const QByteArray& bytes) {
    static const QTemporaryDir folder;
    const QString path = folder.filePath(QString::fromLatin1(name));
    QFile::remove(path);
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(), "the input can be written");
    return path;
}
