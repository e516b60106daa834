// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/JoinedOptions.h"

#include "cli/FilePaths.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace tarsel::cli {

QString joinedTarget(const Arguments& arguments) {
    requireOption(arguments, "out");
    const QString out = arguments.value("out");
    if (out.endsWith(QLatin1Char('/')) || QFileInfo(filePath(out)).isDir())
        throw UsageError{QCoreApplication::translate("CommandLine", "--out: \"%1\" is a folder").arg(out)};
    return filePath(out);
}

quint8 joinedSystemOf(const Arguments& arguments) {
    return quint8(choiceIn(arguments, "system", {QStringLiteral("linux"), QStringLiteral("windows")}));
}

JoinedRun joinedRun(const Arguments& arguments, std::stop_token stop) {
    JoinedRun run;
    run.upright = arguments.has("upright");
    run.stripPrivate = arguments.has("strip-private");
    run.stop = std::move(stop);
    run.reportsRows = run.leavesList = false;
    return run;
}

} // namespace tarsel::cli
