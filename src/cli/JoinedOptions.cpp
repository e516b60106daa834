// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/JoinedOptions.h"

#include "cli/FilePaths.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace tarsel::cli {

QString joinedTarget(const Arguments& arguments, QString (*withExtension)(const QString& path)) {
    requireOption(arguments, "out");
    const QString out = arguments.value("out");
    const QString name = out.section(QLatin1Char('/'), -1);
    const bool hasName = !name.isEmpty() && name != QLatin1String(".") && name != QLatin1String("..");
    const QString target = withExtension(filePath(out));
    if (!hasName || QFileInfo(target).isDir())
        throw UsageError{QCoreApplication::translate("CommandLine", "--out: \"%1\" is a folder")
                             .arg(hasName ? target : out)};
    return target;
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
