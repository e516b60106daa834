// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Interrupt.h"

#include <chrono>
#include <csignal>
#include <gtest/gtest.h>
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

} // namespace
} // namespace tarsel::cli
