// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/output/TestBasket.h"
#include "base/SafeFileWriter.h"
#include "tests/support/TestPictures.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>

namespace tarsel::test {

namespace {
std::string joined(const QStringList& words) {
    return words.join(QLatin1Char(' ')).toStdString();
}
} // namespace

Picture shadedPicture(int width, int height, int seed) {
    return pictureOf(width, height, 3, [=](int x, int y) {
        return Rgb{std::uint8_t(255 * x / width), std::uint8_t(255 * y / height), std::uint8_t(40 * seed)};
    });
}

TestBasket::TestBasket() {
    settings.DestinationFolder = path("out/");
    QDir().mkpath(settings.DestinationFolder);
}

QString TestBasket::addPicture(const char* name, int width, int height,
                               const std::function<void(ImageBox&)>& edit) {
    const QString file = path(name);
    ImageBox maker = boxWith(shadedPicture(width, height, pages.count()));
    if (edit)
        edit(maker);
    maker.SaveToFile(file);
    addRow(file, QFileInfo(file).completeBaseName());
    return file;
}

void TestBasket::addPictures(std::initializer_list<const char*> names) {
    for (const char* name : names)
        addPicture(name);
}

void TestBasket::addRow(const char* name, const char* rowText) {
    addRow(path(name), text(rowText));
}

void TestBasket::addRow(const QString& file, const QString& rowText) {
    ListRow row;
    row.text = rowText;
    row.tag = file;
    row.subItems = QStringList{QString(), QString(), QString(), file, QString()};
    pages.add(row);
}

QString TestBasket::writeFile(const char* name, const QByteArray& bytes) const {
    writeFileSafely(path(name), bytes);
    return path(name);
}

void TestBasket::nameByParts(const char* prefix, const char* suffix) {
    settings.NameOption = 1;
    settings.DestinationOption = 1;
    settings.RenamePrefix = text(prefix);
    settings.RenameSuffix = text(suffix);
}

void TestBasket::importExif(const char* name, const QByteArray& records) {
    settings.ImportEXIF = 1;
    settings.ImportEXIFFile = writeFile(name, records);
}

void TestBasket::addTask(const char* kind, const char* key, std::initializer_list<const char*> columns) {
    TaskRow row{.kind = text(kind), .key = text(key), .columns = {}};
    std::ranges::transform(columns, row.columns.begin(), text);
    tasks.append(row);
    settings.ProcessEditingList = 1;
}

bool TestBasket::run() {
    results.clear();
    return fncSaveSinglePage(pages, tasks.lvEditBatch, box, progress, settings, slice, results);
}

std::string TestBasket::states() const {
    QStringList words;
    for (const RowResult& result : results)
        words << rowStateText(result.state);
    return joined(words);
}

QStringList TestBasket::reasons() const {
    QStringList texts;
    for (const RowResult& result : results)
        texts << result.reason();
    return texts;
}

std::string TestBasket::targets() const {
    QStringList names;
    for (const RowResult& result : results)
        names << result.target.mid(result.target.lastIndexOf(QLatin1Char('/')) + 1);
    return joined(names);
}

QString TestBasket::errors() const {
    QStringList lines;
    for (const ErrorReport& report : desktop.reports)
        lines << report.ErrRoutine + text(": ") + report.ErrSystem;
    return lines.join(QLatin1Char('\n'));
}

int TestBasket::width(const char* name) const {
    return loaded(path(name)).Width();
}

std::string TestBasket::files(const char* subFolder) const {
    return joined(QDir(path(subFolder)).entryList(QDir::Files | QDir::Hidden, QDir::Name));
}

} // namespace tarsel::test
