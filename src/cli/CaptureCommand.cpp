// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/ScreenSource.h"
#include "base/SafeFileWriter.h"
#include "base/Stop.h"
#include "base/TrappedError.h"
#include "cli/Command.h"
#include "cli/FilePaths.h"
#include "cli/Interrupt.h"
#include "cli/JsonLine.h"
#include "cli/OldFiles.h"
#include "cli/Terminal.h"
#include "imaging/ImageBox.h"
#include "imaging/PictureParts.h"
#include "imaging/SaveFormats.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <tuple>

namespace tarsel::cli {

namespace {

constexpr int longestDelay = 3600;
/// What windows get to move out of the way.
constexpr std::chrono::milliseconds clearingTime(500);
constexpr int mostLooks = 5; ///< whether they have

constexpr OptionSpec options[] = {
    {"out", "FILE",
     QT_TRANSLATE_NOOP("CommandLine",
                       "the file to write, in the format of its extension; required without --list")},
    {"overwrite", nullptr, QT_TRANSLATE_NOOP("CommandLine", "replace an older file")},
    {"kind", "KIND",
     QT_TRANSLATE_NOOP("CommandLine",
                       "foreground (default) or background: the screen as it is; desktop: without windows")},
    {"monitor", "NAME", QT_TRANSLATE_NOOP("CommandLine", "only this monitor, see --list")},
    {"region", "X,Y,W,H",
     QT_TRANSLATE_NOOP("CommandLine",
                       "only this rectangle, in pixels from the top left of the screen or the monitor")},
    {"delay", "SECONDS", QT_TRANSLATE_NOOP("CommandLine", "wait before the picture is taken")},
    {"pointer", nullptr, QT_TRANSLATE_NOOP("CommandLine", "with the mouse pointer")},
    {"list", nullptr, QT_TRANSLATE_NOOP("CommandLine", "the monitors and their places instead of a picture")},
    {"json", nullptr,
     QT_TRANSLATE_NOOP(
         "CommandLine",
         "one JSON object a line: target, width and height; of a list: monitor, x, y, width, height")},
};

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(CaptureCommand)
};

QRect regionIn(const QString& text) {
    static const QRegularExpression form(QStringLiteral(R"(^(\d{1,6}),(\d{1,6}),(\d{1,6}),(\d{1,6})$)"));
    const QRegularExpressionMatch match = form.match(text);
    const auto number = [&](int group) { return match.captured(group).toInt(); };
    const QRect region(number(1), number(2), number(3), number(4));
    if (!match.hasMatch() || region.isEmpty())
        throw UsageError{Texts::tr("--region takes X,Y,W,H, not \"%1\"").arg(text)};
    return region;
}

bool isDesktopWanted(const Arguments& arguments) {
    const QString kind = arguments.value("kind", QStringLiteral("foreground"));
    const QStringList kinds{QStringLiteral("desktop"), QStringLiteral("foreground"),
                            QStringLiteral("background")}; // there is no window to hide for the last one
    if (!kinds.contains(kind))
        throw UsageError{Texts::tr("--kind is desktop, foreground or background, not \"%1\"").arg(kind)};
    return kind == QLatin1String("desktop");
}

QRect monitorIn(const std::vector<Monitor>& monitors, const QString& name) {
    const auto found = std::ranges::find(monitors, name, &Monitor::name);
    if (found == monitors.end())
        throw UsageError{Texts::tr("there is no monitor \"%1\"; --list names them").arg(name)};
    return found->area;
}

/// What is wanted of the screen.
QRect areaIn(const ScreenPicture& screen, const Arguments& arguments) {
    QRect area(0, 0, screen.picture.width(), screen.picture.height());
    if (arguments.has("monitor"))
        area = monitorIn(screen.monitors, arguments.value("monitor"));
    if (!arguments.has("region"))
        return area;
    const QRect region = regionIn(arguments.value("region")).translated(area.topLeft());
    if (!area.contains(region))
        throw UsageError{Texts::tr("--region %1 is not within %2 x %3 pixels")
                             .arg(arguments.value("region"), QString::number(area.width()),
                                  QString::number(area.height()))};
    return region;
}

int listMonitors(ScreenSource& screen, Terminal& terminal, bool json) {
    const std::vector<Monitor> monitors = screen.monitors();
    if (monitors.empty())
        throw TrappedError{ErrorNumber::InvalidCall, Texts::tr("the desktop does not list its monitors")};
    for (const Monitor& monitor : monitors) {
        const QRect& area = monitor.area;
        terminal.result(json ? JsonLine()
                                   .add("monitor", monitor.name)
                                   .add("x", area.x())
                                   .add("y", area.y())
                                   .add("width", area.width())
                                   .add("height", area.height())
                                   .text()
                             : Texts::tr("%1: %2 x %3 at %4,%5")
                                   .arg(monitor.name)
                                   .arg(area.width())
                                   .arg(area.height())
                                   .arg(area.x())
                                   .arg(area.y()));
    }
    return AllDone;
}

/// Raises 18 after a stop.
void pause(std::chrono::milliseconds time) {
    std::mutex mutex;
    std::unique_lock lock(mutex);
    std::condition_variable_any().wait_for(lock, currentStop(), time, [] { return false; });
    raiseIfStopped();
}

ScreenPicture grab(ScreenSource& screen, const Arguments& arguments, Terminal& terminal) {
    const bool withPointer = arguments.has("pointer");
    if (!isDesktopWanted(arguments))
        return screen.grab(withPointer);
    const ClearedDesktop cleared(screen);
    if (!cleared.isCleared())
        terminal.message(Texts::tr("tarsel: the window manager can't clear the desktop of windows"));
    for (int look = 0; look == 0 || (look < mostLooks && !cleared.isDone()); ++look)
        pause(clearingTime);
    return screen.grab(withPointer);
}

/// Nothing after an interrupt, which brings the windows back first.
std::optional<ScreenPicture> pictureOf(ScreenSource& screen, const Arguments& arguments, Terminal& terminal,
                                       std::chrono::seconds delay) {
    const InterruptScope interruptible;
    const StopScope scope(interruptible.stop());
    try {
        pause(delay);
        return grab(screen, arguments, terminal);
    } catch (const TrappedError&) {
        if (!wasInterrupted())
            throw;
        return std::nullopt;
    }
}

const SaveFormat& formatOf(const QString& target) {
    const SaveFormat* format = findSaveFormat(QFileInfo(target).suffix());
    if (!format)
        throw UsageError{
            Texts::tr("\"%1\": its extension is not that of a format that can be written").arg(target)};
    return *format;
}

/// Another program may have made a file there since the first look.
void write(const QString& target, const QByteArray& bytes, bool overwrites) {
    if (overwrites)
        writeFileSafely(target, bytes);
    else if (!writeNewFileSafely(target, bytes))
        failForOldFile(target);
}

int run(const Arguments& arguments, Terminal& terminal) {
    if (!arguments.operands().isEmpty())
        throw UsageError{Texts::tr("unexpected \"%1\"").arg(arguments.operands().first())};
    const bool json = arguments.has("json");
    if (arguments.has("list"))
        return listMonitors(*systemScreen(), terminal, json);
    requireOption(arguments, "out");
    const QString target = filePath(arguments.value("out"));
    const SaveFormat& format = formatOf(target);
    const bool overwrites = arguments.has("overwrite");
    if (!overwrites)
        requireFree(target);
    const int delay = numberIn(arguments.value("delay", QStringLiteral("0")), 0, longestDelay, "delay");

    std::ignore = isDesktopWanted(arguments); // what is wrong is said before the delay
    if (arguments.has("region"))
        std::ignore = regionIn(arguments.value("region"));

    const std::unique_ptr<ScreenSource> screen = systemScreen();
    if (arguments.has("monitor"))
        std::ignore = monitorIn(screen->monitors(), arguments.value("monitor"));
    const auto taken = pictureOf(*screen, arguments, terminal, std::chrono::seconds(delay));
    if (!taken)
        return Interrupted;
    const QRect area = areaIn(*taken, arguments);
    ImageBox box;
    box.setPictureHandle(partOf(taken->picture, area.x(), area.y(), {area.width(), area.height()}));
    box.ColorFormat = format.colors.front().colorFormat;
    write(target, box.encoded(QLatin1String(format.extension)), overwrites);
    terminal.result(
        json ? JsonLine().add("target", target).add("width", area.width()).add("height", area.height()).text()
             : Texts::tr("%1: %2 x %3 pixels")
                   .arg(target, QString::number(area.width()), QString::number(area.height())));
    return AllDone;
}

} // namespace

constexpr Command captureCommand{
    .name = "capture",
    .operands = "",
    .required = "--out FILE",
    .summary = QT_TRANSLATE_NOOP("CommandLine", "Take a picture of the screen."),
    .notes = QT_TRANSLATE_NOOP(
        "CommandLine",
        "One pixel of the screen is one pixel of the picture, whatever the scale of a monitor. The screen\n"
        "is that of the X server in DISPLAY; in a session of Wayland, by WAYLAND_DISPLAY, the desktop takes\n"
        "the picture, and may ask first."),
    .options = options,
    .run = run,
};

} // namespace tarsel::cli
