// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Stop.h"
#include "cli/ApplicationScope.h"
#include "cli/BasketWorkspace.h"
#include "cli/Command.h"
#include "cli/Interrupt.h"
#include "cli/PictureFacts.h"
#include "cli/Terminal.h"

namespace tarsel::cli {

namespace {

constexpr OptionSpec options[] = {
    {"json", nullptr, "one JSON object a line for each picture"},
};

/// False when the picture could not be decoded.
bool report(const QString& path, bool json, Terminal& terminal) {
    terminal.setSubject(path);
    PictureFacts facts;
    readPictureFacts(path, facts);
    terminal.result(json ? jsonOf(facts) : textOf(facts));
    return facts.reason.isEmpty();
}

int run(const Arguments& arguments, Terminal& terminal) {
    if (arguments.operands().isEmpty())
        throw UsageError{QStringLiteral("no picture given")};
    const ApplicationScope application(false);
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
    .summary = "Tell header facts, decoded size and depth, pages, EXIF and IPTC of pictures.",
    .notes = "A picture that can't be read is told as failed and doesn't stop the others.",
    .options = options,
    .run = run,
};

} // namespace tarsel::cli
