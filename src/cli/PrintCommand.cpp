// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ApplicationScope.h"
#include "cli/BasketWorkspace.h"
#include "cli/Command.h"
#include "cli/FilePaths.h"
#include "cli/Interrupt.h"
#include "cli/RowReport.h"
#include "cli/TaskSource.h"
#include "cli/Terminal.h"
#include "output/PrintedRows.h"
#include "output/SourceGuard.h"

#include <QCoreApplication>
#include <QPageSize>

namespace tarsel::cli {

namespace {

constexpr OptionSpec options[] = {
    {"pdf", "OUT.pdf", QT_TRANSLATE_NOOP("CommandLine", "the document to write; required")},
    {"paper", "NAME",
     QT_TRANSLATE_NOOP("CommandLine",
                       "A3, A4 (default), A5, Letter, Legal and the other names of PPD files")},
    {"landscape", nullptr, QT_TRANSLATE_NOOP("CommandLine", "turn the paper")},
    {"mode", "MODE",
     QT_TRANSLATE_NOOP(
         "CommandLine",
         "fit (default): all of the picture in its place; fill: the place, cropping the picture;\n"
         "true: the size by the picture's resolution")},
    {"scale", "PERCENT",
     QT_TRANSLATE_NOOP("CommandLine",
                       "of that size, 1 to 1000 (default: 100); what leaves the place is cropped")},
    {"position", "PLACE",
     QT_TRANSLATE_NOOP(
         "CommandLine",
         "center (default), top-left, top, top-right, left, right, bottom-left, bottom, bottom-right")},
    {"margin", "MM",
     QT_TRANSLATE_NOOP("CommandLine",
                       "paper that stays empty on each side, up to 100 (default: 10); 20x15: 20 left and\n"
                       "right, 15 at the top and at the bottom")},
    {"per-page", "N", QT_TRANSLATE_NOOP("CommandLine", "places on a page, 1 to 64 (default: 1)")},
    {"repeat", nullptr, QT_TRANSLATE_NOOP("CommandLine", "fill all places of a page with the same picture")},
    {"captions", "TEXT",
     QT_TRANSLATE_NOOP("CommandLine", "below each picture: none (default), name or description")},
    {"tasks", "F.tbf", QT_TRANSLATE_NOOP("CommandLine", "run this task list on every picture")},
    {"json", nullptr,
     QT_TRANSLATE_NOOP("CommandLine", "one JSON object a line: row, source, target, state, reason")},
};

double lengthIn(const Arguments& arguments, const char* option, const QString& text, double lowest,
                double highest) {
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    if (!isNumber || !(number >= lowest && number <= highest))
        throw UsageError{QCoreApplication::translate("CommandLine", "--%1 takes %2 to %3, not \"%4\"")
                             .arg(QLatin1String(option))
                             .arg(lowest)
                             .arg(highest)
                             .arg(arguments.value(option))};
    return number;
}

void setMargins(PrintLayout& layout, const Arguments& arguments) {
    const QStringList lengths = arguments.value("margin", QStringLiteral("10")).split(QLatin1Char('x'));
    const auto margin = [&](const QString& text) {
        return lengthIn(arguments, "margin", lengths.size() > 2 ? QString() : text, 0,
                        PrintLayout::largestMargin);
    };
    layout.marginAcross = margin(lengths.first());
    layout.marginDown = margin(lengths.last());
}

int paperOf(const Arguments& arguments) {
    const QString name = arguments.value("paper", QStringLiteral("A4"));
    for (int id = 0; id <= QPageSize::LastPageSize; ++id)
        if (id != QPageSize::Custom &&
            QPageSize::key(QPageSize::PageSizeId(id)).compare(name, Qt::CaseInsensitive) == 0)
            return id;
    throw UsageError{QCoreApplication::translate("CommandLine", "--paper: unknown size \"%1\"").arg(name)};
}

PrintLayout layoutOf(const Arguments& arguments) {
    PrintLayout layout;
    layout.paper = paperOf(arguments);
    layout.landscape = arguments.has("landscape");
    layout.sizing =
        choiceIn(arguments, "mode", {QStringLiteral("fit"), QStringLiteral("fill"), QStringLiteral("true")});
    layout.scale = lengthIn(arguments, "scale", arguments.value("scale", QStringLiteral("100")),
                            PrintLayout::smallestScale, PrintLayout::largestScale);
    layout.position =
        choiceIn(arguments, "position",
                 {QStringLiteral("center"), QStringLiteral("top-left"), QStringLiteral("top"),
                  QStringLiteral("top-right"), QStringLiteral("left"), QStringLiteral("right"),
                  QStringLiteral("bottom-left"), QStringLiteral("bottom"), QStringLiteral("bottom-right")});
    setMargins(layout, arguments);
    layout.perPage =
        numberIn(arguments.value("per-page", QStringLiteral("1")), 1, PrintLayout::mostPerPage, "per-page");
    layout.repeats = arguments.has("repeat");
    layout.caption =
        choiceIn(arguments, "captions",
                 {QStringLiteral("none"), QStringLiteral("name"), QStringLiteral("description")});
    return layout;
}

QString documentPath(const Arguments& arguments) {
    requireOption(arguments, "pdf");
    const QString path = filePath(arguments.value("pdf"));
    if (!path.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive))
        throw UsageError{
            QCoreApplication::translate("CommandLine", "--pdf: \"%1\" doesn't end in .pdf").arg(path)};
    return path;
}

int run(const Arguments& arguments, Terminal& terminal) {
    const PrintLayout layout = layoutOf(arguments);
    const QString path = documentPath(arguments);
    TaskList tasks;
    readTasks(arguments, tasks);
    ApplicationScope::provideFonts(); // the writer of PDF needs them, with or without captions
    const InterruptScope interruptible;
    TerminalProgress progress(terminal);
    BasketWorkspace basket(progress, interruptible.stop());
    basket.fill(arguments.operands());
    requireNoSource(basket.pages(), path, basket.missing());
    RowReport report(terminal, arguments.has("json"));
    report.addMissing(basket.missing());
    ImageBox box;
    const PdfPrint print{basket.pages(), tasks.lvEditBatch, path, layout, interruptible.stop()};
    for (const RowResult& result : print.run(box, progress))
        report.add(result);
    report.summarise();
    return exitStatus(report.allDone(false));
}

} // namespace

constexpr Command printCommand{
    .name = "print",
    .operands = "BASKET.ibf|BASKET.ibd | PICTURE...",
    .required = "--pdf OUT.pdf",
    .summary = QT_TRANSLATE_NOOP("CommandLine", "Print a basket, or pictures, into a PDF document."),
    .notes = QT_TRANSLATE_NOOP(
        "CommandLine",
        "Pictures are turned upright by their EXIF orientation, and their colours become those of sRGB. Of\n"
        "large ones no more pixels are written than 600 an inch. A picture without a resolution has 96\n"
        "pixels an inch. A row that can't be printed is left out, the others go on, and the exit status is "
        "1.\n"
        "The document is written in one step at the end: after an interrupt, or when no row could be "
        "printed,\n"
        "there is none, and an older one of that name stays."),
    .options = options,
    .run = run,
};

} // namespace tarsel::cli
