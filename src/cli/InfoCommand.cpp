// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ErrorSubject.h"
#include "base/Locale.h"
#include "base/Stop.h"
#include "cli/Command.h"
#include "cli/FilePaths.h"
#include "cli/Interrupt.h"
#include "cli/PictureFacts.h"
#include "cli/Terminal.h"

#include <QCoreApplication>
#include <optional>

namespace tarsel::cli {

namespace {

constexpr OptionSpec options[] = {
    {"json", nullptr, QT_TRANSLATE_NOOP("CommandLine", "one JSON object a line for each picture")},
};

/// False when the picture could not be decoded, or in part only.
bool report(const QString& path, bool json, Terminal& terminal) {
    const ErrorSubject subject(path);
    PictureFacts facts;
    readPictureFacts(path, facts);
    terminal.results(json ? QStringList{jsonOf(facts)} : linesOf(facts));
    return facts.reason.isEmpty() && facts.damage.isEmpty();
}

int run(const Arguments& arguments, Terminal& terminal) {
    if (arguments.operands().isEmpty())
        throw UsageError{QCoreApplication::translate("CommandLine", "no picture given")};
    const InterruptScope interruptible;
    const StopScope stop(interruptible.stop());
    PlainLocale plain;
    std::optional<ServiceScope<Locale>> sameOnAllSystems;
    if (arguments.has("json"))
        sameOnAllSystems.emplace(plain);
    bool allRead = true;
    QStringList paths;
    for (const QString& operand : arguments.operands())
        paths << filePath(operand);
    for (const QString& path : paths) {
        if (wasInterrupted())
            return Interrupted;
        allRead = report(path, arguments.has("json"), terminal) && allRead;
    }
    return exitStatus(allRead);
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
