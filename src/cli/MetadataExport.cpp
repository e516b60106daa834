// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FileIdentity.h"
#include "base/TrappedError.h"
#include "cli/FilePaths.h"
#include "cli/MetadataReport.h"
#include "cli/OldFiles.h"
#include "metadata/modMetadata.h"

#include <QDir>

namespace tarsel::cli {

namespace {

constexpr OptionSpec exportOptions[] = {
    {"exif", "F.xiff",
     QT_TRANSLATE_NOOP("CommandLine", "the EXIF attributes that users may edit, of one picture")},
    {"iptc", "F.ffo", QT_TRANSLATE_NOOP("CommandLine", "all IPTC fields, of one picture")},
    {"beside", "exif|iptc|both",
     QT_TRANSLATE_NOOP("CommandLine", "side files beside each picture: a.jpg.xiff and a.jpg.ffo of a.jpg")},
    {"overwrite", nullptr, QT_TRANSLATE_NOOP("CommandLine", "with --beside, replace older side files")},
    dryRunOption,
    jsonOption,
};

/// The side files of one picture; "" for one that isn't wanted.
struct SideFiles {
    QString exif;
    QString iptc;
};

/// A list without contents makes no file. Returns why no file was made, or what the file can't hold.
QStringList writeExif(const ImageBox& box, const QString& file, bool isDry, MetadataOutcome& outcome) {
    ListView rows;
    modMetadata::AddExifRows(box.metadata(), rows);
    int editable = 0;
    for (int i = 0; i < rows.count(); ++i)
        editable += rows.row(i).key.isEmpty() ? 0 : 1;
    if (editable == 0)
        return {QCoreApplication::translate("CommandLine", "no EXIF attribute that users may edit")};
    if (!isDry)
        modMetadata::WriteXiffFile(file, rows);
    outcome.files.append({"exif", file});
    const QString remark = modMetadata::remarkOnXiffFile(rows);
    return remark.isEmpty() ? QStringList() : QStringList(remark);
}

QStringList writeIptc(const ImageBox& box, const QString& file, bool isDry, MetadataOutcome& outcome) {
    if (!box.HasIptc())
        return {QCoreApplication::translate("CommandLine", "no IPTC fields")};
    if (!isDry)
        box.IptcSaveToFile(file);
    outcome.files.append({"iptc", file});
    return {};
}

MetadataOutcome exported(const QString& path, const SideFiles& files, bool isDry) {
    MetadataOutcome outcome{isDry ? "dry-run" : "written", {}};
    try {
        ImageBox box;
        modMetadata::ReadMetadata(path, box);
        QStringList remarks;
        if (!files.exif.isEmpty())
            remarks << writeExif(box, files.exif, isDry, outcome);
        if (!files.iptc.isEmpty())
            remarks << writeIptc(box, files.iptc, isDry, outcome);
        outcome.remark = remarks.join(QStringLiteral("; "));
        if (outcome.files.isEmpty())
            outcome.state = "unchanged";
    } catch (const TrappedError& error) {
        outcome.state = "failed";
        outcome.reason = error.description;
    }
    return outcome;
}

/// Other names could be those of pictures: other commands have an --exif without a value.
QString sideFileOf(const Arguments& arguments, const char* option, const char* extension) {
    if (!arguments.has(option))
        return {};
    QString path = filePath(arguments.value(option));
    if (!path.endsWith(QLatin1String(extension), Qt::CaseInsensitive))
        throw UsageError{QCoreApplication::translate("CommandLine", "--%1: \"%2\" doesn't end in %3")
                             .arg(QLatin1String(option), path, QLatin1String(extension))};
    return path;
}

/// To the files of these names; one that can't be made is a failure.
int exportOne(const Arguments& arguments, Terminal& terminal) {
    const SideFiles files{sideFileOf(arguments, "exif", ".xiff"), sideFileOf(arguments, "iptc", ".ffo")};
    const QStringList paths = editablePictures(arguments.operands());
    if (paths.size() != 1 || arguments.operands().size() != 1)
        throw UsageError{QCoreApplication::translate(
            "CommandLine", "--exif and --iptc take one picture; --beside takes several")};
    for (const QString& file : {files.exif, files.iptc})
        if (!file.isEmpty() && FileIdentity::of(file) == FileIdentity::of(paths.first()))
            throw UsageError{
                QCoreApplication::translate("CommandLine", "%1 is the picture itself").arg(file)};
    return forEach(paths, arguments, terminal, [&](const QString& path, MetadataReport& report) {
        MetadataOutcome outcome = exported(path, files, report.isDry());
        if (outcome.files.size() < int(!files.exif.isEmpty()) + int(!files.iptc.isEmpty()) &&
            outcome.reason.isEmpty()) {
            outcome.state = "failed";
            outcome.reason = std::exchange(outcome.remark, {});
        }
        report.add(path, outcome);
    });
}

int exportBeside(const Arguments& arguments, Terminal& terminal) {
    const QString lists = arguments.value("beside");
    const bool exif = lists != QLatin1String("iptc"), iptc = lists != QLatin1String("exif");
    if (arguments.has("exif") || arguments.has("iptc") || (exif && iptc && lists != QLatin1String("both")))
        throw UsageError{QCoreApplication::translate(
            "CommandLine", "--beside takes exif, iptc or both, and goes without --exif and --iptc")};
    return forEach(editablePictures(arguments.operands()), arguments, terminal,
                   [&](const QString& path, MetadataReport& report) {
                       const SideFiles files{exif ? path + QStringLiteral(".xiff") : QString(),
                                             iptc ? path + QStringLiteral(".ffo") : QString()};
                       try {
                           for (const QString& file : {files.exif, files.iptc})
                               if (!arguments.has("overwrite"))
                                   requireFree(file);
                       } catch (const TrappedError& error) {
                           return report.add(path, {"failed", error.description});
                       }
                       report.add(path, exported(path, files, report.isDry()));
                   });
}

int runExport(const Arguments& arguments, Terminal& terminal) {
    if (arguments.has("beside"))
        return exportBeside(arguments, terminal);
    if (!arguments.has("exif") && !arguments.has("iptc"))
        throw UsageError{QCoreApplication::translate("CommandLine", "--exif, --iptc or --beside is missing")};
    return exportOne(arguments, terminal);
}

} // namespace

constexpr Command metadataExportCommand{
    .name = "metadata export",
    .operands = "PICTURE|FOLDER...",
    .summary =
        QT_TRANSLATE_NOOP("CommandLine", "Write EXIF attributes or IPTC fields of pictures to side files."),
    .notes =
        QT_TRANSLATE_NOOP("CommandLine", "Side files can be applied to other pictures by import and batch."),
    .options = exportOptions,
    .run = runExport,
};

} // namespace tarsel::cli
