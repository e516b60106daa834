// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/EditLock.h"
#include "base/ErrorTrap.h"
#include "base/SafeFileWriter.h"
#include "cli/BasketWorkspace.h"
#include "cli/Command.h"
#include "cli/FilePaths.h"
#include "cli/JsonLine.h"
#include "cli/PictureFacts.h"
#include "cli/RawNames.h"
#include "cli/Terminal.h"
#include "collections/RowRun.h"
#include "collections/clsFileInfo.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <algorithm>

namespace tarsel::cli {

namespace {

constexpr OptionSpec options[] = {
    {"description", "TEXT",
     QT_TRANSLATE_NOOP(
         "CommandLine",
         "add, save: description of the pictures, kept by a .ibd basket without its double quotes")},
    {"json", nullptr,
     QT_TRANSLATE_NOOP(
         "CommandLine",
         "list: one JSON object a line: row, name, path, source, resolution, size, type, description")},
};

constexpr int plainFilter = 2;
constexpr int describedFilter = 3;

/// The basket as `list` shows it: with pages, and without entries whose file is missing.
int list(const Arguments& arguments, const QString& basketPath, Terminal& terminal) {
    TerminalProgress progress(terminal);
    BasketWorkspace basket(progress);
    basket.fill({basketPath});
    const ListView& pages = basket.pages();
    for (int i = 0; i < pages.count(); ++i) {
        const ListRow& row = pages.row(i);
        const auto cell = [&](int column) { return pages.subItem(i, column); };
        terminal.result(arguments.has("json") ? JsonLine()
                                                    .add("row", i + 1)
                                                    .add("name", row.text)
                                                    .add("path", shownSource(row)) // a page's own file goes
                                                    .add("source", cell(BasketColumn::SourcePath))
                                                    .add("resolution", cell(BasketColumn::Resolution))
                                                    .add("size", cell(BasketColumn::FileSize))
                                                    .add("type", cell(BasketColumn::Type))
                                                    .add("description", cell(BasketColumn::Description))
                                                    .text()
                                              : QStringLiteral("%1  %2  %3  %4")
                                                    .arg(i + 1, 5)
                                                    .arg(cell(BasketColumn::Resolution), 13)
                                                    .arg(cell(BasketColumn::SourcePath), row.text));
    }
    for (const QString& path : basket.missing())
        terminal.message(QStringLiteral("tarsel: ") + unreadableReason(path));
    return basket.missing().isEmpty() ? AllDone : SomeNotDone;
}

/// One row for each distinct path: what a basket file holds.
void addEntry(ListView& entries, const QString& path, const QString& description) {
    if (entries.findSubItem(BasketColumn::SourcePath, path) >= 0)
        return;
    ListRow row;
    row.text = clsFileInfo::StripFileFromPath(path);
    row.tag = path;
    row.subItems = QStringList{QString(), QString(), QString(), path, description};
    entries.add(std::move(row));
}

/// Empty for a file that can be read.
QString whyNotAdded(const QString& path) {
    if (!isUtf8Name(path))
        return notUtf8Text(path);
    try {
        (void)openRegularFile(path);
    } catch (const TrappedError& error) {
        return error.description;
    }
    return {};
}

/// Adds pictures that exist; the others are reported. False when there was one.
bool addPictures(ListView& entries, const QStringList& paths, const QString& description,
                 Terminal& terminal) {
    bool allThere = true;
    for (const QString& operand : paths) {
        const QString path = absolutePath(operand);
        const QString reason = whyNotAdded(path);
        if (reason.isEmpty()) {
            addEntry(entries, path, description);
            continue;
        }
        terminal.message(QStringLiteral("tarsel: ") + reason);
        allThere = false;
    }
    return allThere;
}

bool isDescribed(const QString& path) {
    return path.endsWith(QLatin1String(".ibd"), Qt::CaseInsensitive);
}

void write(const QString& path, const ListView& entries) {
    if (entries.isEmpty())
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("CommandLine", "%1: an empty basket is not written").arg(path));
    modSaveOpenImageList::writeBasketFile(isDescribed(path) ? describedFilter : plainFilter, path, entries);
}

/// Without double quotes, for which a .ibd file has no escape.
QString descriptionOf(const Arguments& arguments) {
    return arguments.value("description").remove(QLatin1Char('"'));
}

int save(const Arguments& arguments, const QString& basketPath, Terminal& terminal) {
    ListView entries(basketHeaders());
    const bool allThere =
        addPictures(entries, arguments.operands().mid(2), descriptionOf(arguments), terminal);
    write(basketPath, entries);
    return allThere ? AllDone : SomeNotDone;
}

/// Entries whose file is missing stay: its disk may come back.
int add(const Arguments& arguments, const QString& basketPath, Terminal& terminal) {
    const EditLock lock(basketPath); // what others add meanwhile stays
    ListView entries(basketHeaders());
    for (const auto& entry : modSaveOpenImageList::readBasketEntries(basketPath))
        addEntry(entries, entry.path, entry.description);
    const bool allThere =
        addPictures(entries, arguments.operands().mid(2), descriptionOf(arguments), terminal);
    write(basketPath, entries);
    return allThere ? AllDone : SomeNotDone;
}

void refuseUnfit(const Arguments& arguments, const QString& action, const QString& basketPath) {
    const bool lists = action == QLatin1String("list");
    if (lists && arguments.operands().size() > 2)
        throw UsageError{QCoreApplication::translate("CommandLine", "list takes one basket")};
    if (!lists && arguments.operands().size() < 3)
        throw UsageError{QCoreApplication::translate("CommandLine", "no picture given")};
    if (lists ? arguments.has("description") : arguments.has("json"))
        throw UsageError{
            QCoreApplication::translate("CommandLine", "%1 doesn't take that option").arg(action)};
    if (!isBasketFile(basketPath))
        throw UsageError{QCoreApplication::translate("CommandLine", "%1: a basket file ends in .ibf or .ibd")
                             .arg(basketPath)};
    if (arguments.has("description") && !isDescribed(basketPath))
        throw UsageError{
            QCoreApplication::translate("CommandLine", "%1: only a .ibd basket keeps descriptions")
                .arg(basketPath)};
    for (const QString& picture : arguments.operands().mid(2))
        if (isBasketFile(picture))
            throw UsageError{QCoreApplication::translate("CommandLine", "%1 is a basket file, not a picture")
                                 .arg(picture)};
}

struct Action {
    const char* name;
    int (*run)(const Arguments& arguments, const QString& basketPath, Terminal& terminal);
};
constexpr Action actions[] = {{"list", list}, {"add", add}, {"save", save}};

int run(const Arguments& arguments, Terminal& terminal) {
    const QString name = arguments.operands().value(0);
    const auto action = std::ranges::find_if(
        actions, [&](const Action& candidate) { return name == QLatin1String(candidate.name); });
    if (action == std::end(actions) || arguments.operands().size() < 2)
        throw UsageError{
            QCoreApplication::translate("CommandLine", "expected list, add or save, and a basket")};
    const QString basketPath = filePath(arguments.operands().at(1));
    refuseUnfit(arguments, name, basketPath);
    return action->run(arguments, basketPath, terminal);
}

} // namespace

constexpr Command basketCommand{
    .name = "basket",
    .operands = "list BASKET | add BASKET PICTURE... | save BASKET PICTURE...",
    .summary = QT_TRANSLATE_NOOP("CommandLine", "List a basket file, add pictures to it, or make one."),
    .notes = QT_TRANSLATE_NOOP(
        "CommandLine",
        "BASKET is a .ibf file (paths) or a .ibd file (paths and descriptions). save replaces an old file.\n"
        "A path that the basket has already is not added again."),
    .options = options,
    .run = run,
};

} // namespace tarsel::cli
