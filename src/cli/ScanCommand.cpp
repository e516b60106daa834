// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/scanner/ScannerErrors.h"
#include "acquisition/scanner/ScannerProcess.h"
#include "bytes/StopDescriptor.h"
#include "cli/Command.h"
#include "cli/Interrupt.h"
#include "cli/ScanOptionList.h"
#include "cli/ScanTarget.h"
#include "cli/Terminal.h"

#include <QCoreApplication>
#include <unistd.h>

namespace tarsel::cli {

namespace {

constexpr int mostPages = 9999;

constexpr OptionSpec options[] = {
    {"out", "FILE|FOLDER",
     QT_TRANSLATE_NOOP("CommandLine", "where the pages go; required without --list and --options")},
    {"format", "F", QT_TRANSLATE_NOOP("CommandLine", "format of files in a folder (default: tif)")},
    {"multi", nullptr, QT_TRANSLATE_NOOP("CommandLine", "one document with all pages, TIF or PDF")},
    {"overwrite", nullptr, QT_TRANSLATE_NOOP("CommandLine", "replace older files")},
    {"device", "NAME", QT_TRANSLATE_NOOP("CommandLine", "the scanner, see --list (default: the first one)")},
    {"source", "NAME",
     QT_TRANSLATE_NOOP("CommandLine", "flatbed, document feeder and the like, see --options")},
    {"mode", "NAME", QT_TRANSLATE_NOOP("CommandLine", "Color, Gray, Lineart and the like, see --options")},
    {"resolution", "DPI", QT_TRANSLATE_NOOP("CommandLine", "pixels an inch")},
    {"depth", "BITS", QT_TRANSLATE_NOOP("CommandLine", "bits of a sample; 16 are reduced to 8")},
    {"area", "X,Y,W,H",
     QT_TRANSLATE_NOOP("CommandLine", "only this rectangle, in millimetres from the top left of the glass")},
    {"set", "OPTION=VALUE", QT_TRANSLATE_NOOP("CommandLine", "any option of the scanner, see --options"),
     true},
    {"pages", "N",
     QT_TRANSLATE_NOOP("CommandLine",
                       "at most this many pages (default: one from a flatbed, all of a feeder)")},
    {"list", nullptr, QT_TRANSLATE_NOOP("CommandLine", "the scanners instead of a page")},
    {"options", nullptr, QT_TRANSLATE_NOOP("CommandLine", "the options of the scanner instead of a page")},
    {"json", nullptr,
     QT_TRANSLATE_NOOP("CommandLine", "one JSON object a line: target, page, width, height, state, reason")},
};

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(ScanCommand)
};

int listDevices(const std::vector<ScanDevice>& devices, Terminal& terminal, bool json) {
    for (const ScanDevice& device : devices)
        terminal.result(json ? JsonLine()
                                   .add("device", device.name)
                                   .add("vendor", device.vendor)
                                   .add("model", device.model)
                                   .add("type", device.type)
                                   .text()
                             : QStringLiteral("%1: %2 %3 (%4)")
                                   .arg(device.name, device.vendor, device.model, device.type));
    return AllDone;
}

std::vector<ScanDevice> foundDevices(ScannerProcess& scanner, const std::stop_token& stop) {
    std::vector<ScanDevice> devices = scanner.devices(stop);
    if (devices.empty())
        failScanning(ScannerFault::NoDevice, {});
    return devices;
}

void openDevice(ScannerProcess& scanner, const Arguments& arguments, Terminal& terminal,
                const std::stop_token& stop) {
    QString name = arguments.value("device");
    if (name.isEmpty()) {
        const std::vector<ScanDevice> devices = foundDevices(scanner, stop);
        name = devices.front().name;
        if (devices.size() > 1)
            terminal.message(Texts::tr("tarsel: of several scanners, %1 is used").arg(name));
    }
    scanner.open(name, stop);
}

void report(const ScannedPage& page, const AcquiredFile& file, Terminal& terminal, bool json) {
    const bool isCut = page.isCut && !file.error;
    const QString reason = file.error ? file.error->description
                           : isCut    ? Texts::tr("the scanner sent fewer lines than it promised")
                                      : QString();
    const auto state = QLatin1String(file.error ? "failed" : "written");
    if (json)
        terminal.result(JsonLine()
                            .add("target", file.path)
                            .add("page", page.number)
                            .add("width", page.picture.width())
                            .add("height", page.picture.height())
                            .add("state", state)
                            .add("reason", reason)
                            .text());
    else if (file.error)
        terminal.message(Texts::tr("tarsel: page %1 is not saved: %2").arg(page.number).arg(reason));
    else
        terminal.result(Texts::tr("%1: page %2, %3 x %4 pixels")
                            .arg(file.path, QString::number(page.number),
                                 QString::number(page.picture.width()),
                                 QString::number(page.picture.height())));
    if (isCut && !json)
        terminal.message(Texts::tr("tarsel: page %1 ended early: %2").arg(page.number).arg(reason));
}

QString progressLine(const ScanProgress& now) {
    if (now.isSaving)
        return Texts::tr("Page %1: saving").arg(now.number);
    if (now.allLines == 0)
        return Texts::tr("Page %1: line %2").arg(now.number).arg(now.lines);
    return Texts::tr("Page %1: %2 %").arg(now.number).arg(std::int64_t(now.lines) * 100 / now.allLines);
}

/// On a flatbed somebody has to turn the page. Without a terminal nobody is asked. False for an interrupt,
/// and at the end of the input.
bool isNextPageReady(int number, Terminal& terminal, const std::stop_token& stop) {
    if (::isatty(STDIN_FILENO) != 1)
        return true;
    terminal.message(Texts::tr("Put page %1 on the glass, then press Enter.").arg(number));
    const StopDescriptor stopped(stop);
    waitForEither(STDIN_FILENO, stopped.number(), std::chrono::steady_clock::now() + std::chrono::hours(24));
    char line[256];
    return !stop.stop_requested() && ::read(STDIN_FILENO, line, sizeof line) > 0;
}

/// One run of the scanner after the other on a flatbed, a single one through a feeder.
int scanPages(ScannerProcess& scanner, const Arguments& arguments, Terminal& terminal, ScanTarget& target) {
    const InterruptScope interruptible;
    const std::stop_token stop = interruptible.stop();
    const bool isFeeder = scanner.options().isFeeder().value_or(false);
    const int pages = arguments.has("pages") ? numberIn(arguments.value("pages"), 1, mostPages, "pages")
                                             : (isFeeder ? 0 : 1);
    target.begin(pages == 1);
    bool isAllSaved = true;
    const ScanListeners listeners{
        .progress = [&](const ScanProgress& now) { terminal.drawBar(progressLine(now)); },
        .pageArrived =
            [&](const ScannedPage& page, const AcquiredFile& file) {
                terminal.removeBar();
                isAllSaved = isAllSaved && !file.error;
                report(page, file, terminal, arguments.has("json"));
            }};
    ScanRequest request{.mostPages = isFeeder ? pages : 1,
                        .save = [&](const ScannedPage& page) { return target.save(page); }};
    for (int done = 0; done == 0 || (!isFeeder && done < pages && isNextPageReady(done + 1, terminal, stop));
         ++done) {
        request.firstNumber = done + 1;
        const ScanEnd end = scanner.acquire(request, listeners, stop);
        terminal.removeBar();
        if (end.error)
            throw *end.error;
        if (end.reason == ScanEndReason::Cancelled) {
            if (!stop.stop_requested()) // but at the device
                failScanning(ScannerFault::Cancelled, scanner.device());
            break;
        }
    }
    return exitStatus(isAllSaved);
}

int run(const Arguments& arguments, Terminal& terminal) {
    if (!arguments.operands().isEmpty())
        throw UsageError{Texts::tr("unexpected \"%1\"").arg(arguments.operands().first())};
    const bool json = arguments.has("json");
    std::stop_token never;
    ScannerProcess scanner;
    if (arguments.has("list"))
        return listDevices(foundDevices(scanner, never), terminal, json);
    std::optional<ScanTarget> target;
    if (!arguments.has("options"))
        target.emplace(arguments);
    openDevice(scanner, arguments, terminal, never);
    applyScanOptions(scanner, arguments, terminal);
    if (!target)
        return listScanOptions(scanner.options(), terminal, json);
    return scanPages(scanner, arguments, terminal, *target);
}

} // namespace

constexpr Command scanCommand{
    .name = "scan",
    .operands = "",
    .required = "--out FILE|FOLDER",
    .summary = QT_TRANSLATE_NOOP("CommandLine", "Scan pages from a scanner."),
    .notes = QT_TRANSLATE_NOOP(
        "CommandLine",
        "FILE gets the page in the format of its extension. Where more pages can follow, each has its "
        "number\n"
        "before the extension, unless --multi puts all into one document. In FOLDER they are Scan1.tif, "
        "Scan2.tif\n"
        "and so on.\n"
        "Pages are saved one by one: those that have arrived stay when a later one fails, or when SIGINT or\n"
        "SIGTERM ends the run. Before the first page nothing is replaced. From a flatbed, more than one "
        "page\n"
        "is asked for on the terminal; without a terminal they follow each other at once."),
    .options = options,
    .run = run,
};

} // namespace tarsel::cli
