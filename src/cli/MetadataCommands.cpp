// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/EditLock.h"
#include "base/ErrorSubject.h"
#include "base/Locale.h"
#include "base/TrappedError.h"
#include "cli/Command.h"
#include "cli/FilePaths.h"
#include "cli/Interrupt.h"
#include "cli/MetadataChanges.h"
#include "cli/PictureFacts.h"
#include "cli/Terminal.h"
#include "metadata/modMetadata.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <deque>
#include <functional>
#include <future>

namespace tarsel::cli {

namespace {

constexpr OptionSpec jsonOption = {
    "json", nullptr, QT_TRANSLATE_NOOP("CommandLine", "one JSON object a line for each picture")};
constexpr OptionSpec dryRunOption = {
    "dry-run", nullptr, QT_TRANSLATE_NOOP("CommandLine", "try it and say what would be done; write nothing")};

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
constexpr OptionSpec exportOptions[] = {
    {"exif", "F.xiff", QT_TRANSLATE_NOOP("CommandLine", "the EXIF attributes that users may edit")},
    {"iptc", "F.ffo", QT_TRANSLATE_NOOP("CommandLine", "all IPTC fields")},
};
constexpr OptionSpec importOptions[] = {
    {"exif", "F.xiff", QT_TRANSLATE_NOOP("CommandLine", "set the attributes of this file")},
    {"iptc", "F.ffo", QT_TRANSLATE_NOOP("CommandLine", "replace all IPTC fields by those of this file")},
    dryRunOption,
    jsonOption,
};

/// Files as they are given; of a folder, the pictures in it whose metadata can be written, by name.
QStringList pictures(const QStringList& operands) {
    if (operands.isEmpty())
        throw UsageError{QCoreApplication::translate("CommandLine", "no picture given")};
    QStringList paths;
    for (const QString& operand : operands) {
        const QString path = filePath(operand);
        if (!QFileInfo(path).isDir()) {
            paths << path;
            continue;
        }
        for (const QString& name : QDir(path).entryList(QDir::Files, QDir::Name))
            if (modMetadata::listedMetadata(QFileInfo(name).suffix()) != modMetadata::ListedMetadata::None)
                paths << QDir(path).filePath(name);
    }
    return paths;
}

/// What became of a picture.
struct Outcome {
    const char* state;
    QString reason; ///< of a failure
    QString remark = {};
};

/// Runs `change` on the metadata of a picture and writes them where they became others. For any thread.
Outcome outcomeOf(const QString& path, const std::function<void(ImageBox& box)>& change, bool isDry) {
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
                box.metadata().ContradictsXmp() ? modMetadata::xmpContradiction() : QString()};
    } catch (const TrappedError& error) {
        return {"failed", error.description};
    }
}

/// What became of each picture, as lines or as JSON.
class Report {
public:
    Report(const Arguments& arguments, Terminal& terminal) :
        m_terminal(terminal), m_json(arguments.has("json")), m_isDry(arguments.has("dry-run")) {}

    void addNone(bool isEmpty) {
        if (isEmpty)
            m_terminal.message(QCoreApplication::translate("CommandLine", "no files"));
    }

    void change(const QString& path, const std::function<void(ImageBox& box)>& change) {
        add(path, outcomeOf(path, change, m_isDry));
    }

    void add(const QString& path, const Outcome& outcome) {
        m_failed = m_failed || !outcome.reason.isEmpty();
        const QString state = QLatin1String(outcome.state) + QStringLiteral(": ");
        if (m_json) {
            m_terminal.result(JsonLine()
                                  .add("path", path)
                                  .add("state", QLatin1String(outcome.state))
                                  .add("reason", outcome.reason)
                                  .add("remark", outcome.remark)
                                  .text());
            return;
        }
        if (outcome.reason.isEmpty())
            m_terminal.result(state + path);
        else
            m_terminal.message(state + namingPath(path, outcome.reason));
        if (!outcome.remark.isEmpty())
            m_terminal.message(path + QStringLiteral(": ") + outcome.remark);
    }

    bool isDry() const { return m_isDry; }
    int status() const { return wasInterrupted() ? Interrupted : m_failed ? SomeNotDone : AllDone; }

private:
    Terminal& m_terminal;
    bool m_json;
    bool m_isDry;
    bool m_failed = false;
};

/// Until the user interrupts.
template <class Items, class Step>
int forEach(const Items& items, const Arguments& arguments, Terminal& terminal, Step&& step) {
    const InterruptScope interruptible;
    Report report(arguments, terminal);
    report.addNone(items.isEmpty());
    for (const auto& item : items) {
        if (wasInterrupted())
            break;
        step(item, report);
    }
    return report.status();
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
    const QStringList paths = pictures(arguments.operands());
    const std::size_t atOnce = areDistinct(paths) ? most : 1;
    const InterruptScope interruptible;
    Report report(arguments, terminal);
    report.addNone(paths.isEmpty());
    std::deque<std::future<Outcome>> running;
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

void printRows(const char* heading, const ListView& rows, Terminal& terminal) {
    for (int i = 0; i < rows.count(); ++i)
        if (const QString value = rows.row(i).subItems.value(0); !value.isEmpty())
            terminal.result(
                QStringLiteral("  %1: %2 = %3").arg(QLatin1String(heading), rows.row(i).text, value));
}

void get(const QString& path, bool json, Terminal& terminal) {
    const ErrorSubject subject(path);
    ImageBox box;
    modMetadata::ReadMetadata(path, box);
    ListView exif, iptc;
    modMetadata::AddExifRows(box.metadata(), exif);
    modMetadata::AddIptcRows(box.metadata(), iptc, service<Locale>().dateForms());
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
    printRows("EXIF", exif, terminal);
    printRows("IPTC", iptc, terminal);
}

int runGet(const Arguments& arguments, Terminal& terminal) {
    return forEach(pictures(arguments.operands()), arguments, terminal,
                   [&](const QString& path, Report& report) {
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
    return forEach(rows, arguments, terminal, [&](const auto& row, Report& report) {
        report.change(row.first, [&](ImageBox& box) {
            for (const AttributeChange& change : row.second)
                apply(change, box, forms);
        });
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
            modMetadata::ClearIptcField(box, field.name);
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

void requireSideFile(const Arguments& arguments) {
    if (!arguments.has("exif") && !arguments.has("iptc"))
        throw UsageError{QCoreApplication::translate("CommandLine", "--exif or --iptc is missing")};
}

int runExport(const Arguments& arguments, Terminal&) {
    requireSideFile(arguments);
    if (arguments.operands().size() != 1)
        throw UsageError{QCoreApplication::translate("CommandLine", "expected one picture")};
    ImageBox box;
    modMetadata::ReadMetadata(filePath(arguments.operands().first()), box);
    if (arguments.has("exif")) {
        ListView rows;
        modMetadata::AddExifRows(box.metadata(), rows);
        if (modMetadata::WriteXiffFile(filePath(arguments.value("exif")), rows) == 0)
            fail(ErrorNumber::InvalidCall,
                 QCoreApplication::translate("CommandLine", "%1 has no EXIF attribute that users may edit")
                     .arg(arguments.operands().first()));
    }
    if (arguments.has("iptc"))
        box.IptcSaveToFile(filePath(arguments.value("iptc")));
    return AllDone;
}

/// One without fields would delete those of every picture, for which there is a command.
void requireIptc(const QString& sideFile) {
    MetadataStore fields;
    fields.IptcLoadFromFile(sideFile);
    if (!fields.HasIptc())
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("CommandLine", "%1 has no IPTC fields; no picture was changed")
                 .arg(sideFile));
}

int runImport(const Arguments& arguments, Terminal& terminal) {
    requireSideFile(arguments);
    const DateForms forms = service<Locale>().dateForms();
    const auto file = [&](const char* option) {
        const QString path = arguments.has(option) ? filePath(arguments.value(option)) : QString();
        if (!path.isEmpty() && !QFileInfo::exists(path))
            fail(ErrorNumber::FileNotFound, path);
        return path;
    };
    const QString exif = file("exif"), iptc = file("iptc");
    if (!iptc.isEmpty())
        requireIptc(iptc);
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
constexpr Command metadataExportCommand{
    .name = "metadata export",
    .operands = "PICTURE",
    .summary =
        QT_TRANSLATE_NOOP("CommandLine", "Write EXIF attributes or IPTC fields of a picture to side files."),
    .notes =
        QT_TRANSLATE_NOOP("CommandLine", "Side files can be applied to other pictures by import and batch."),
    .options = exportOptions,
    .run = runExport,
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
