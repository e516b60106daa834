// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/EditLock.h"
#include "base/ErrorSubject.h"
#include "base/IgnoringErrors.h"
#include "base/Locale.h"
#include "base/TrappedError.h"
#include "cli/FilePaths.h"
#include "cli/MetadataChanges.h"
#include "cli/MetadataReport.h"
#include "cli/PictureFacts.h"
#include "embedded/IptcFields.h"
#include "metadata/modMetadata.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSet>
#include <deque>
#include <functional>
#include <future>

namespace tarsel::cli {

namespace {

constexpr OptionSpec getOptions[] = {jsonOption};
constexpr OptionSpec setOptions[] = {
    {"exif", "NAME=VALUE", QT_TRANSLATE_NOOP("CommandLine", "an EXIF attribute by its name; may be repeated"),
     true},
    {"iptc", "LABEL=VALUE",
     QT_TRANSLATE_NOOP("CommandLine",
                       "an IPTC field by its label; may be repeated; items of lists with commas"),
     true},
    {"from", "F.csv",
     QT_TRANSLATE_NOOP("CommandLine", "a table: a column for each field, a row for each picture")},
    dryRunOption,
    jsonOption,
};
constexpr OptionSpec deleteOptions[] = {
    {"exif", "NAME", QT_TRANSLATE_NOOP("CommandLine", "any EXIF attribute; may be repeated"), true},
    {"iptc", "LABEL", QT_TRANSLATE_NOOP("CommandLine", "an IPTC field by its label; may be repeated"), true},
    dryRunOption,
    jsonOption,
};
constexpr OptionSpec clearOptions[] = {
    {"exif", nullptr, QT_TRANSLATE_NOOP("CommandLine", "all EXIF attributes")},
    {"iptc", nullptr, QT_TRANSLATE_NOOP("CommandLine", "all IPTC fields")},
    dryRunOption,
    jsonOption,
};
constexpr OptionSpec importOptions[] = {
    {"exif", "F.xiff", QT_TRANSLATE_NOOP("CommandLine", "set the attributes of this file")},
    {"iptc", "F.ffo", QT_TRANSLATE_NOOP("CommandLine", "replace all IPTC fields by those of this file")},
    dryRunOption,
    jsonOption,
};

/// Runs `change` on the metadata of a picture and writes them where they became others. For any thread.
MetadataOutcome outcomeOf(const QString& path, const std::function<void(ImageBox& box)>& change, bool isDry) {
    try {
        const EditLock lock(path);
        ImageBox box;
        modMetadata::ReadMetadata(path, box);
        const EmbeddedMetadata before = box.metadata().blocks();
        change(box);
        const bool isChanged = box.metadata().blocks() != before;
        if (isChanged && !isDry)
            box.SaveMetadataOnly(path);
        return {!isChanged ? "unchanged"
                : isDry    ? "dry-run"
                           : "written",
                {},
                modMetadata::remarksOn(box.metadata()).join(QStringLiteral("; "))};
    } catch (const TrappedError& error) {
        return {"failed", error.description};
    }
}

/// Each file once: then several can be written at the same time.
bool areDistinct(const QStringList& paths) {
    QSet<QString> seen;
    for (const QString& path : paths)
        seen.insert(QFileInfo(path).canonicalFilePath());
    return seen.size() == paths.size();
}

/// While the disk takes one file, the next ones are read and changed. The report keeps the order.
int changeEach(const Arguments& arguments, Terminal& terminal,
               const std::function<void(ImageBox& box)>& change) {
    constexpr std::size_t most = 4;
    const QStringList paths = editablePictures(arguments.operands());
    const std::size_t atOnce = areDistinct(paths) ? most : 1;
    const InterruptScope interruptible;
    MetadataReport report(arguments, terminal);
    report.addNone(paths.isEmpty());
    std::deque<std::future<MetadataOutcome>> running;
    qsizetype started = 0;
    for (const QString& path : paths) {
        for (; running.size() < atOnce && started < paths.size() && !wasInterrupted(); ++started)
            running.push_back(
                std::async(std::launch::async, outcomeOf, paths[started], change, report.isDry()));
        if (running.empty())
            break;
        report.add(path, running.front().get());
        running.pop_front();
    }
    return report.status();
}

// --- get

/// Under the names that `set` and `delete` take, in any language.
void printRows(const char* heading, QString ListRow::*name, const ListView& rows, Terminal& terminal) {
    for (int i = 0; i < rows.count(); ++i)
        if (const QString value = rows.row(i).subItems.value(0); !value.isEmpty())
            terminal.result(
                QStringLiteral("  %1: %2 = %3").arg(QLatin1String(heading), rows.row(i).*name, value));
}

/// In forms that `set` takes on every system: EXIF's own, and for IPTC that of ISO 8601.
void showDatesPlainly(const ImageBox& box, ListView& exif, ListView& iptc) {
    for (int i = 0; i < exif.count(); ++i)
        if (modMetadata::IsExifDate(exif.row(i).tag))
            ignoringErrors([&] {
                const QDateTime date = ImageBox::ExifTextToDate(box.ExifValue(i));
                if (date != emptyDate())
                    exif.setSubItem(i, 1, ImageBox::ExifDateToText(date));
            });
    for (int i = 0; i < iptc.count(); ++i)
        if (const IptcField* field = iptcFieldByLabel(iptc.row(i).text); field->kind == IptcKind::Date)
            if (const QDateTime date = iptcDate(box.metadata(), field->member.toStdString());
                date != emptyDate())
                iptc.setSubItem(i, 1, date.date().toString(Qt::ISODate));
}

void get(const QString& path, bool json, Terminal& terminal) {
    const ErrorSubject subject(path);
    ImageBox box;
    modMetadata::ReadMetadata(path, box);
    ListView exif, iptc;
    modMetadata::AddExifRows(box.metadata(), exif);
    modMetadata::AddIptcRows(box.metadata(), iptc, service<Locale>().dateForms());
    showDatesPlainly(box, exif, iptc);
    addUrgency(box, iptc);
    if (json) {
        terminal.result(JsonLine()
                            .add("path", path)
                            .add("state", QStringLiteral("ok"))
                            .add("reason", QString())
                            .add("exif", jsonOfRows(exif, true))
                            .add("iptc", jsonOfRows(iptc, false))
                            .text());
        return;
    }
    terminal.result(path);
    printRows("EXIF", &ListRow::tag, exif, terminal);
    printRows("IPTC", &ListRow::text, iptc, terminal);
}

int runGet(const Arguments& arguments, Terminal& terminal) {
    return forEach(editablePictures(arguments.operands()), arguments, terminal,
                   [&](const QString& path, MetadataReport& report) {
                       try {
                           get(path, arguments.has("json"), terminal);
                       } catch (const TrappedError& error) {
                           report.add(path, {"failed", error.description});
                       }
                   });
}

// --- set, delete, clear

int setFromTable(const Arguments& arguments, Terminal& terminal) {
    if (!arguments.operands().isEmpty() || arguments.has("exif") || arguments.has("iptc"))
        throw UsageError{
            QCoreApplication::translate("CommandLine", "--from goes without other changes and pictures")};
    const auto rows = changesOfTable(filePath(arguments.value("from")));
    const DateForms forms = service<Locale>().dateForms();
    return forEach(rows, arguments, terminal, [&](const auto& row, MetadataReport& report) {
        const auto change = [&](ImageBox& box) {
            for (const AttributeChange& each : row.second)
                apply(each, box, forms);
        };
        report.add(row.first, outcomeOf(row.first, change, report.isDry()));
    });
}

int runSet(const Arguments& arguments, Terminal& terminal) {
    if (arguments.has("from"))
        return setFromTable(arguments, terminal);
    QList<AttributeChange> changes;
    for (const QString& text : arguments.values("exif"))
        changes << attributeChange(false, text);
    for (const QString& text : arguments.values("iptc"))
        changes << attributeChange(true, text);
    if (changes.isEmpty())
        throw UsageError{QCoreApplication::translate("CommandLine", "nothing to set")};
    const DateForms forms = service<Locale>().dateForms();
    return changeEach(arguments, terminal, [&](ImageBox& box) {
        for (const AttributeChange& change : changes)
            apply(change, box, forms);
    });
}

void deleteExif(const QString& name, ImageBox& box) {
    if (!box.ExifDelete(name))
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("CommandLine", "%1 can't be deleted").arg(name));
    box.ExifSet(QStringLiteral("Software"), modMetadata::ProductTitle);
}

int runDelete(const Arguments& arguments, Terminal& terminal) {
    const QStringList names = arguments.values("exif");
    QList<AttributeChange> fields;
    for (const QString& label : arguments.values("iptc"))
        fields << attributeNamed(true, label);
    if (names.isEmpty() && fields.isEmpty())
        throw UsageError{QCoreApplication::translate("CommandLine", "nothing to delete")};
    return changeEach(arguments, terminal, [&](ImageBox& box) {
        for (const QString& name : names)
            if (box.metadata().HasExif(name))
                deleteExif(name, box);
        for (const AttributeChange& field : fields)
            deleteIptcField(field, box);
    });
}

int runClear(const Arguments& arguments, Terminal& terminal) {
    if (!arguments.has("exif") && !arguments.has("iptc"))
        throw UsageError{QCoreApplication::translate("CommandLine", "--exif or --iptc is missing")};
    return changeEach(arguments, terminal, [&](ImageBox& box) {
        if (arguments.has("exif"))
            box.ExifClear();
        if (arguments.has("iptc"))
            box.IptcClear();
    });
}

// --- side files

int runImport(const Arguments& arguments, Terminal& terminal) {
    if (!arguments.has("exif") && !arguments.has("iptc"))
        throw UsageError{QCoreApplication::translate("CommandLine", "--exif or --iptc is missing")};
    const DateForms forms = service<Locale>().dateForms();
    const auto file = [&](const char* option) {
        const QString path = arguments.has(option) ? filePath(arguments.value(option)) : QString();
        if (!path.isEmpty() && !QFileInfo::exists(path))
            fail(ErrorNumber::FileNotFound, path);
        return path;
    };
    const QString exif = file("exif"), iptc = file("iptc");
    if (!iptc.isEmpty() && !modMetadata::HasIptcFields(iptc)) // for deleting there is a command
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("CommandLine", "%1 has no IPTC fields; no picture was changed")
                 .arg(iptc));
    return changeEach(arguments, terminal, [&](ImageBox& box) {
        if (!exif.isEmpty())
            modMetadata::ApplyXiffFile(exif, box, forms);
        if (!iptc.isEmpty())
            box.IptcLoadFromFile(iptc);
    });
}

constexpr const char* keptNote = QT_TRANSLATE_NOOP(
    "CommandLine",
    "Works on JPEG, TIFF and PSD files, and on those of folders. Pixels, pages and layers keep\n"
    "their bytes. A file that fails stays as it was and doesn't stop the others.");

} // namespace

constexpr Command metadataGetCommand{
    .name = "metadata get",
    .operands = "PICTURE|FOLDER...",
    .summary = QT_TRANSLATE_NOOP("CommandLine", "Show EXIF attributes and IPTC fields of pictures."),
    .notes = QT_TRANSLATE_NOOP("CommandLine", "Names and words are those of the window's lists."),
    .options = getOptions,
    .run = runGet,
};
constexpr Command metadataSetCommand{
    .name = "metadata set",
    .operands = "PICTURE|FOLDER...",
    .summary = QT_TRANSLATE_NOOP("CommandLine", "Set EXIF attributes and IPTC fields in picture files."),
    .notes = keptNote,
    .options = setOptions,
    .run = runSet,
};
constexpr Command metadataDeleteCommand{
    .name = "metadata delete",
    .operands = "PICTURE|FOLDER...",
    .summary = QT_TRANSLATE_NOOP("CommandLine", "Delete EXIF attributes and IPTC fields from picture files."),
    .notes = keptNote,
    .options = deleteOptions,
    .run = runDelete,
};
constexpr Command metadataClearCommand{
    .name = "metadata clear",
    .operands = "PICTURE|FOLDER...",
    .summary = QT_TRANSLATE_NOOP("CommandLine", "Delete all EXIF attributes or all IPTC fields."),
    .notes = keptNote,
    .options = clearOptions,
    .run = runClear,
};
constexpr Command metadataImportCommand{
    .name = "metadata import",
    .operands = "PICTURE|FOLDER...",
    .summary = QT_TRANSLATE_NOOP("CommandLine", "Put the contents of side files into picture files."),
    .notes = keptNote,
    .options = importOptions,
    .run = runImport,
};

} // namespace tarsel::cli
