// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Interrupt.h"
#include "cli/RowReport.h"
#include "cli/Terminal.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <gtest/gtest.h>
#include <memory>
#include <thread>
#include <tuple>
#include <unistd.h>

namespace tarsel::cli {
namespace {

TEST(Interrupt, SignalsThatComeTogetherAskForAStopAndALaterOneEndsTheProcess) {
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    const auto interruptTwice = [](std::chrono::milliseconds pause) {
        const InterruptScope scope;
        std::ignore = raise(SIGTERM);
        std::this_thread::sleep_for(pause);
        std::ignore = raise(SIGTERM);
        _exit(wasInterrupted() ? 130 : 0);
    };
    EXPECT_EXIT(interruptTwice(std::chrono::milliseconds(0)), testing::ExitedWithCode(130), "");
    EXPECT_EXIT(interruptTwice(std::chrono::milliseconds(300)), testing::KilledBySignal(SIGTERM), "");
}

TEST(Interrupt, PicturesThatNobodyHasGotToAreCancelledAndNotUnreadable) {
    const InterruptScope scope;
    std::ignore = raise(SIGTERM);
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> results(std::tmpfile(), std::fclose);
    Terminal terminal(results.get(), stderr, false);
    RowReport report(terminal, false);
    report.addMissing({QStringLiteral("/whole.jpg")});
    char line[100] = {};
    std::rewind(results.get());
    ASSERT_TRUE(std::fgets(line, sizeof line, results.get()));
    EXPECT_STREQ(line, "    0  skipped  /whole.jpg (cancelled)\n");
    EXPECT_FALSE(report.allDone(false));
}

} // namespace
} // namespace tarsel::cli
