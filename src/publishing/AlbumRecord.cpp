// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/AlbumRecord.h"

#include <QDateTime>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>
#include <algorithm>

namespace tarsel {

namespace {

constexpr int version = 1;
constexpr QStringView versionKey = u"version", filesKey = u"files", rowsKey = u"rows";

bool staysInFolder(const QString& path) {
    const QStringList parts = path.split(QLatin1Char('/'));
    return !path.contains(QChar(u'\0')) && std::ranges::none_of(parts, [](const QString& part) {
        return part.isEmpty() || part == u"." || part == u"..";
    });
}

/// -1 for what isn't a number that a stamp can have.
qint64 numberAt(const QJsonArray& array, int index) {
    constexpr double largest = 1LL << 53;
    const double number = array.at(index).toDouble(-1);
    return number >= 0 && number < largest ? qint64(number) : -1;
}

} // namespace

AlbumRecord::Stamp AlbumRecord::Stamp::of(const QString& path) {
    const QFileInfo file(path);
    if (!file.isFile())
        return {};
    return {file.size(), file.lastModified().toMSecsSinceEpoch()};
}

AlbumRecord AlbumRecord::parsed(const QByteArray& text) {
    const QJsonObject all = QJsonDocument::fromJson(text).object();
    AlbumRecord record;
    if (all[versionKey].toInt() != version)
        return record;
    const QJsonObject files = all[filesKey].toObject();
    for (auto file = files.begin(); file != files.end(); ++file)
        if (const QJsonArray stamp = file.value().toArray(); staysInFolder(file.key()))
            record.files.insert(file.key(), {numberAt(stamp, 0), numberAt(stamp, 1)});
    const QJsonObject rows = all[rowsKey].toObject();
    for (auto row = rows.begin(); row != rows.end(); ++row) {
        const QJsonArray made = row.value().toArray();
        const QSize size(int(std::clamp<qint64>(numberAt(made, 1), 0, INT_MAX)),
                         int(std::clamp<qint64>(numberAt(made, 2), 0, INT_MAX)));
        if (!size.isEmpty())
            record.rows.insert(row.key(), {made.at(0).toString().toLatin1(), size});
    }
    return record;
}

QByteArray AlbumRecord::text() const {
    QJsonObject allFiles, allRows;
    for (auto file = files.begin(); file != files.end(); ++file)
        allFiles.insert(file.key(), QJsonArray{double(file->size), double(file->modified)});
    for (auto row = rows.begin(); row != rows.end(); ++row)
        allRows.insert(row.key(),
                       QJsonArray{QString::fromLatin1(row->digest), row->size.width(), row->size.height()});
    QJsonObject all;
    all.insert(versionKey, version);
    all.insert(filesKey, allFiles);
    all.insert(rowsKey, allRows);
    return QJsonDocument(all).toJson();
}

} // namespace tarsel
