// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/scanner/ScannerProcess.h"
#include "cli/JsonLine.h"

namespace tarsel::cli {

class Arguments;
class Terminal;

/// Sets what --source, --mode, --depth, --resolution, --area and --set say, in this order: an option can make
/// later ones possible. UsageError, with what is possible, for a value that the scanner doesn't have; what it
/// rounds is reported as a message.
void applyScanOptions(ScannerProcess& scanner, const Arguments& arguments, Terminal& terminal);

/// The options of the scanner as they are. Returns the exit status.
int listScanOptions(const ScanOptions& options, Terminal& terminal, bool json);

} // namespace tarsel::cli
