// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/Arguments.h"
#include "publishing/JoinedBuild.h"

namespace tarsel::cli {

// Options that the commands for self-running files share.
inline constexpr OptionSpec joinedTasks = {
    "tasks", "F.tbf", QT_TRANSLATE_NOOP("CommandLine", "run this task list on every picture")};
inline constexpr OptionSpec joinedSystem = {
    "system", "linux|windows", QT_TRANSLATE_NOOP("CommandLine", "where the file is to run (default: linux)")};
inline constexpr OptionSpec joinedUpright = {
    "upright", nullptr,
    QT_TRANSLATE_NOOP("CommandLine", "turn pictures by their EXIF orientation before the tasks run")};
inline constexpr OptionSpec joinedStrip = {
    "strip-private", nullptr,
    QT_TRANSLATE_NOOP("CommandLine", "leave out GPS positions, serial numbers and makers' own data")};

/// The file of --out with its extension, which `withExtension` completes. UsageError when the option is
/// missing or that file is a folder.
QString joinedTarget(const Arguments& arguments, QString (*withExtension)(const QString& path));
quint8 joinedSystemOf(const Arguments& arguments);
/// Errors of rows are not reported, since their results have them, and no list is left.
JoinedRun joinedRun(const Arguments& arguments, std::stop_token stop);

} // namespace tarsel::cli
