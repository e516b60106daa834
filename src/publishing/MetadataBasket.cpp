// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/MetadataBasket.h"

#include "base/ErrorTrap.h"
#include "base/SaveFileDialog.h"
#include "base/clsFile.h"

#include <QCoreApplication>

namespace tarsel::modSaveOpenImageList {

namespace {

void requireOpen(const clsFile& file) {
    if (!file.isOpen())
        throw *file.openError();
}

} // namespace

void readMetadataBasket(const QString& path, QStringList& list) {
    list.clear();
    clsFile file;
    file.OpenForRead(path);
    requireOpen(file);
    while (!file.fEof()) {
        const QString line = file.readLine().trimmed();
        if (line.size() < 2)
            fail(ErrorNumber::InvalidCall,
                 QCoreApplication::translate("MetadataBasket", "%1, line %2 is empty")
                     .arg(path, QString::number(list.size() + 1)));
        list << line.mid(1, line.size() - 2);
    }
}

bool fncOpenMetadataBasket(const QString& path, QStringList& list) {
    return !trap("modSaveOpenImageList.fncOpenMetadataBasket", [&] { readMetadataBasket(path, list); });
}

bool fncSaveMetadataBasket(QString& path, const QStringList& list) {
    if (list.isEmpty())
        return false;
    path = withExtension(path, metadataBasketExtension);
    return !trap("modSaveOpenImageList.fncSaveMetadataBasket", [&] {
        clsFile file;
        file.OpenForWrite(path);
        requireOpen(file);
        for (const QString& line : list)
            file.writeline(line);
        file.closefile();
    });
}

} // namespace tarsel::modSaveOpenImageList
