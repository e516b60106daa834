// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Terminal.h"

#include <cstdlib>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::cli;

namespace {

/// A file in memory as an end of a terminal.
class MemoryFile {
public:
    MemoryFile() : file(open_memstream(&m_bytes, &m_size)) {}
    ~MemoryFile() {
        std::fclose(file);
        std::free(m_bytes);
    }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    std::string text() {
        std::fflush(file);
        return {m_bytes, m_size};
    }

private:
    char* m_bytes = nullptr;
    size_t m_size = 0;

public:
    std::FILE* const file;
};

std::string bar(int value, int maximum, double seconds, int columns = 80) {
    return barLine(value, maximum, seconds, columns).toStdString();
}

} // namespace

TEST(BarLine, ShowsTheTimeLeftFromWhatIsDone) {
    EXPECT_EQ(bar(0, 10, 5), "[........................................] 0 of 10");
    EXPECT_EQ(bar(5, 10, 65), "[####################....................] 5 of 10, 1:05 left");
    EXPECT_EQ(bar(1, 3, 3600), "[#############...........................] 1 of 3, 2:00:00 left");
    EXPECT_EQ(bar(10, 10, 65), "[########################################] 10 of 10");
}

TEST(BarLine, NeverWrapsTheLine) {
    for (int columns = 0; columns < 90; ++columns)
        for (const int value : {0, 7, 1000})
            EXPECT_LE(int(bar(value, 1000, 12345, columns).size()), columns);
    EXPECT_FALSE(bar(0, 0, 0).empty());
}

TEST(Terminal, ResultsAndMessagesPartAndTheBarStandsOnATerminalAlone) {
    for (const bool showsBar : {false, true}) {
        MemoryFile results, messages;
        Terminal terminal(results.file, messages.file, showsBar);
        double seconds = 0;
        TerminalProgress progress(terminal, [&] { return seconds; });
        progress.start(4);
        terminal.result(QStringLiteral("made"));
        seconds = 10;
        progress.setValue(1);
        terminal.message(QStringLiteral("said"));
        const std::string shown = messages.text();
        progress.hide();
        EXPECT_TRUE(terminal.finish());
        EXPECT_EQ(results.text(), "made\n");
        if (!showsBar) {
            EXPECT_EQ(messages.text(), "said\n");
            continue;
        }
        EXPECT_NE(shown.find("\r\033[Ksaid\n\r\033[K["), std::string::npos) << "the bar comes back";
        EXPECT_TRUE(shown.ends_with("0:30 left"));
        EXPECT_TRUE(messages.text().ends_with("left\r\033[K"));
    }
}

TEST(Terminal, AFullDiskUnderTheResultsIsNoticed) {
    std::FILE* full = std::fopen("/dev/full", "w");
    if (!full)
        GTEST_SKIP() << "no /dev/full here";
    MemoryFile messages;
    Terminal terminal(full, messages.file, false);
    terminal.result(QStringLiteral("made"));
    EXPECT_FALSE(terminal.finish());
    std::fclose(full);
}
