// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Terminal.h"

#include <cstdlib>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::cli;

namespace {

/// Two files in memory as the ends of a terminal.
class TerminalTest : public testing::Test {
protected:
    ~TerminalTest() override {
        std::fclose(results);
        std::fclose(messages);
        std::free(resultBytes);
        std::free(messageBytes);
    }
    std::string resultText() {
        std::fflush(results);
        return {resultBytes, resultSize};
    }
    std::string messageText() {
        std::fflush(messages);
        return {messageBytes, messageSize};
    }

    char *resultBytes = nullptr, *messageBytes = nullptr;
    size_t resultSize = 0, messageSize = 0;
    std::FILE* results = open_memstream(&resultBytes, &resultSize);
    std::FILE* messages = open_memstream(&messageBytes, &messageSize);
};

std::string bar(int value, int maximum, double seconds, int columns = 80) {
    return barLine(value, maximum, seconds, columns).toStdString();
}

} // namespace

TEST(BarLine, TellsTheTimeLeftFromWhatIsDone) {
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

TEST_F(TerminalTest, ResultsAndMessagesPartAndWithoutATerminalThereIsNoBar) {
    Terminal terminal(results, messages, false);
    TerminalProgress progress(terminal);
    progress.start(2);
    terminal.result(QStringLiteral("made"));
    progress.setValue(1);
    terminal.message(QStringLiteral("told"));
    progress.hide();
    EXPECT_TRUE(terminal.finish());
    EXPECT_EQ(resultText(), "made\n");
    EXPECT_EQ(messageText(), "told\n");
}

TEST_F(TerminalTest, TheBarGivesWayToAMessageAndComesBack) {
    Terminal terminal(results, messages, true);
    double seconds = 0;
    TerminalProgress progress(terminal, [&] { return seconds; });
    progress.start(4);
    seconds = 10;
    progress.setValue(1);
    terminal.message(QStringLiteral("told"));
    const std::string shown = messageText();
    EXPECT_NE(shown.find("\r\033[Ktold\n\r\033[K["), std::string::npos);
    EXPECT_EQ(shown.substr(shown.size() - 9), "0:30 left");
    progress.hide();
    const std::string after = messageText();
    EXPECT_EQ(after.substr(after.size() - 4), "\r\033[K");
}

TEST(Terminal, AFullDiskUnderTheResultsIsNoticed) {
    std::FILE* full = std::fopen("/dev/full", "w");
    if (!full)
        GTEST_SKIP() << "no /dev/full here";
    std::FILE* messages = std::tmpfile();
    Terminal terminal(full, messages, false);
    terminal.result(QStringLiteral("made"));
    EXPECT_FALSE(terminal.finish());
    std::fclose(messages);
    std::fclose(full);
}
