// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ErrorSubject.h"
#include "base/Stop.h"
#include "cli/BasketWorkspace.h"
#include "cli/Command.h"
#include "cli/Interrupt.h"
#include "cli/PictureFacts.h"
#include "cli/RawNames.h"
#include "cli/Terminal.h"

#include <QCoreApplication>

namespace tarsel::cli {

namespace {

constexpr OptionSpec options[] = {
    {"json", nullptr, QT_TRANSLATE_NOOP("CommandLine", "one JSON object a line for each picture")},
};

/// False when the picture could not be decoded, or in part only.
bool report(const QString& path, bool json, Terminal& terminal) {
    const ErrorSubject subject(path);
    PictureFacts facts;
    const ReadableName readable(path);
    readPictureFacts(readable.path(), facts);
    facts.path = path;
    facts.reason.replace(readable.path(), path);
    terminal.result(json ? jsonOf(facts) : textOf(facts));
    return facts.reason.isEmpty() && facts.damage.isEmpty();
}

int run(const Arguments& arguments, Terminal& terminal) {
    if (arguments.operands().isEmpty())
        throw UsageError{QCoreApplication::translate("CommandLine", "no picture given")};
    const InterruptScope interruptible;
    const StopScope stop(interruptible.stop());
    bool allRead = true;
    for (const QString& operand : arguments.operands()) {
        if (wasInterrupted())
            return Interrupted;
        allRead = report(absolutePath(operand), arguments.has("json"), terminal) && allRead;
    }
    return wasInterrupted() ? Interrupted : allRead ? AllDone : SomeNotDone;
}

} // namespace

constexpr Command infoCommand{
    .name = "info",
    .operands = "PICTURE...",
    .summary = QT_TRANSLATE_NOOP(
        "CommandLine", "Show header data, decoded size and depth, pages, EXIF and IPTC of pictures."),
    .notes = QT_TRANSLATE_NOOP(
        "CommandLine",
        "A picture that can't be read is reported as failed and doesn't stop the others. One that could "
        "be read\n"
        "in part is reported as damaged; the exit status is 1 for both."),
    .options = options,
    .run = run,
};

} // namespace tarsel::cli
