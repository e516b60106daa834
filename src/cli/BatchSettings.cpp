// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/BatchSettings.h"

#include "base/Conversions.h"
#include "base/SafeFileWriter.h"
#include "cli/FilePaths.h"
#include "cli/RawNames.h"
#include "cli/SizeOptions.h"
#include "output/Naming.h"

#include <QCoreApplication>
#include <QFile>

namespace tarsel::cli {

namespace {

enum NameOption { Retain = 0, Hybrid = 1, Generic = 2 };

qint16 nameOption(const QString& text) {
    static const QStringList names{QStringLiteral("keep"), QStringLiteral("hybrid"),
                                   QStringLiteral("generic")};
    const qsizetype index = names.indexOf(text);
    if (index < 0)
        throw UsageError{
            QCoreApplication::translate("CommandLine", "--name is keep, hybrid or generic, not \"%1\"")
                .arg(text)};
    return qint16(index);
}

/// Options that would be ignored silently are refused: the user expects something of them.
void refuseUnused(const Arguments& arguments, int option) {
    const auto refuse = [&](std::initializer_list<const char*> names, const char* wanted) {
        for (const char* name : names)
            if (arguments.has(name))
                throw UsageError{QCoreApplication::translate("CommandLine", "--%1 goes with --name %2")
                                     .arg(QLatin1String(name), QLatin1String(wanted))};
    };
    if (option != Hybrid)
        refuse({"prefix", "suffix", "separator1", "separator2"}, "hybrid");
    if (option != Generic)
        refuse({"generic", "count"}, "generic");
}

/// Part of a file name as typed.
QString namePart(const Arguments& arguments, const char* option, const QString& fallback) {
    QString text = arguments.value(option, fallback);
    if (text.contains(QLatin1Char('/')))
        throw UsageError{QCoreApplication::translate("CommandLine", "--%1 can't hold a \"/\": %2")
                             .arg(QLatin1String(option), text)};
    if (!isUtf8Name(text))
        throw UsageError{notUtf8Text(text)};
    return text;
}

void setNaming(settings::BatchSave& settings, const Arguments& arguments) {
    settings.NameOption = nameOption(arguments.value("name", QStringLiteral("keep")));
    refuseUnused(arguments, settings.NameOption);
    settings.RenamePrefix = namePart(arguments, "prefix", namingTokens().first());
    settings.RenameSuffix = namePart(arguments, "suffix", namingTokens().first());
    settings.Separator1 = namePart(arguments, "separator1", settings.Separator1);
    settings.Separator2 = namePart(arguments, "separator2", settings.Separator2);
    settings.RenameGeneric = namePart(arguments, "generic", settings.RenameGeneric);
    settings.RenameGenericPattern = arguments.value("count", settings.RenameGenericPattern);
    if (!namingCounts().contains(settings.RenameGenericPattern) && !isNumeric(settings.RenameGenericPattern))
        throw UsageError{
            QCoreApplication::translate("CommandLine", "--count takes a number, \"%1\" or \"%2\", not \"%3\"")
                .arg(namingCounts().at(0), namingCounts().at(1), settings.RenameGenericPattern)};
}

/// The original name in the source's own folder is the hybrid name without anything added: the plain option
/// knows one folder for all.
void keepNameInSourceFolder(settings::BatchSave& settings) {
    settings.NameOption = Hybrid;
    settings.Separator1 = settings.Separator2 = QStringLiteral("[No Separator]");
}

void setDestination(settings::BatchSave& settings, const Arguments& arguments) {
    if (arguments.has("out") && arguments.has("source-folder"))
        throw UsageError{
            QCoreApplication::translate("CommandLine", "--out and --source-folder exclude each other")};
    settings.DestinationOption = arguments.has("source-folder") ? 0 : 1;
    if (!arguments.has("source-folder")) {
        const QString folder = folderPath(arguments.value("out", QStringLiteral(".")));
        settings.DestinationFolder = folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/');
        return;
    }
    if (settings.NameOption == Generic)
        throw UsageError{
            QCoreApplication::translate("CommandLine", "--source-folder goes with --name keep or hybrid")};
    if (settings.NameOption == Retain)
        keepNameInSourceFolder(settings);
}

QString sideFile(const Arguments& arguments, const char* option) {
    if (!arguments.has(option))
        return {};
    QString path = filePath(arguments.value(option));
    (void)openRegularFile(path); // raises why it can't be read
    return path;
}

int rowNumber(const QString& text) {
    bool isNumber = false;
    const int row = text.toInt(&isNumber);
    if (!isNumber || row < 1)
        throw UsageError{
            QCoreApplication::translate("CommandLine", "--rows takes A-B with rows from 1, not \"%1\"")
                .arg(text)};
    return row;
}

} // namespace

settings::BatchSave batchSettings(const Arguments& arguments) {
    settings::BatchSave settings;
    setNaming(settings, arguments);
    setDestination(settings, arguments);
    const char* quality = arguments.has(maxSizeOption.name) ? "100" : "80";
    settings.JpegQuality =
        qint16(numberIn(arguments.value("quality", QLatin1String(quality)), 1, 100, "quality"));
    settings.JpegProgressive = arguments.has("progressive") ? 1 : 0;
    settings.JpegDepth = arguments.has("gray") ? 1 : 0;
    settings.UprightByExif = arguments.has("upright") ? 1 : 0;
    settings.StripPrivate = arguments.has("strip-private") ? 1 : 0;
    settings.Overwrite = arguments.has("no-overwrite") ? 0 : 1;
    settings.ImportEXIFFile = sideFile(arguments, "exif");
    settings.ImportIPTCFile = sideFile(arguments, "iptc");
    settings.ImportEXIF = settings.ImportEXIFFile.isEmpty() ? 0 : 1;
    settings.ImportIPTC = settings.ImportIPTCFile.isEmpty() ? 0 : 1;
    settings.ProcessEditingList = arguments.has("tasks") ? 1 : 0;
    return settings;
}

BatchRun batchRun(const Arguments& arguments) {
    BatchRun run;
    run.dryRun = arguments.has("dry-run");
    run.budget = sizeBudget(arguments);
    run.pagesToDocumentFolder = true;
    if (!arguments.has("rows"))
        return run;
    const QString text = arguments.value("rows");
    const QStringList ends = text.split(QLatin1Char('-'));
    if (ends.size() > 2 || (ends.size() == 2 && ends[0].isEmpty() && ends[1].isEmpty()))
        throw UsageError{
            QCoreApplication::translate("CommandLine", "--rows takes A-B with rows from 1, not \"%1\"")
                .arg(text)};
    run.firstRow = ends.first().isEmpty() ? 1 : rowNumber(ends.first());
    run.lastRow = ends.last().isEmpty() ? 0 : rowNumber(ends.last());
    if (run.lastRow != 0 && run.lastRow < run.firstRow)
        throw UsageError{
            QCoreApplication::translate("CommandLine", "--rows ends before it begins: %1").arg(text)};
    return run;
}

bool namesDestination(const Arguments& arguments) {
    return arguments.has("out") || arguments.has("source-folder");
}

} // namespace tarsel::cli
