// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "cli/CommandLine.h"
#include "cli/RawNames.h"
#include "cli/Terminal.h"

#include <unistd.h>

int main(int argc, char** argv) {
    tarsel::reportFileSizeLimitAsError();
    QStringList words;
    for (int i = 1; i < argc; ++i)
        words << tarsel::cli::nameFromBytes(argv[i]);
    tarsel::cli::Terminal terminal(stdout, stderr, ::isatty(STDERR_FILENO) == 1);
    return tarsel::cli::runCommandLine(words, terminal);
}
