// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/IgnoringErrors.h"

#include <QLoggingCategory>
#include <QMutex>
#include <map>

namespace tarsel {

namespace {

/// "tarsel.codecs" for ".../src/codecs/PngReader.cpp"; "tarsel" outside the libraries.
QByteArray categoryName(const QByteArray& file) {
    const qsizetype source = file.lastIndexOf("src/");
    const qsizetype folder = source + 4, end = file.indexOf('/', folder);
    return source < 0 || end < 0 ? QByteArray("tarsel") : "tarsel." + file.mid(folder, end - folder);
}

/// The library's category, which stays for as long as the program runs.
const QLoggingCategory& categoryOf(const QByteArray& file) {
    static QMutex mutex;
    static std::map<QByteArray, std::unique_ptr<QLoggingCategory>> categories;
    const QMutexLocker locker(&mutex);
    const auto [place, isNew] = categories.try_emplace(categoryName(file));
    if (isNew)
        place->second = std::make_unique<QLoggingCategory>(place->first.constData(), QtInfoMsg);
    return *place->second;
}

} // namespace

void logIgnored(const QString& description, std::source_location where) {
    const QLoggingCategory& category = categoryOf(where.file_name());
    if (category.isDebugEnabled())
        QMessageLogger(where.file_name(), int(where.line()), where.function_name(), category.categoryName())
                .debug()
                .noquote()
            << "ignored:" << description;
}

} // namespace tarsel
