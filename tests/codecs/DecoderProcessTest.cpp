// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "base/TrappedError.h"
#include "codecs/DecoderLost.h"
#include "codecs/DecoderPool.h"
#include "tests/support/ForkedChild.h"
#include "tests/support/Metafiles.h"
#include "tests/support/TestPictures.h"

#include <QFileInfo>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <optional>
#include <poll.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace tarsel {
namespace {

Picture decodeDrawing(DecoderProcess& process) {
    return process
        .decode({DecoderFormat::Metafile, test::wmf(test::redLeftHalf()), {40, 20}},
                {"WMF", QStringLiteral("drawing.wmf"), 5})
        .picture;
}

/// The child does what the "file" says.
class Misbehaving : public testing::Test {
protected:
    Misbehaving() { qputenv("TARSEL_DECODER", TARSEL_MISBEHAVING_DECODER); }
    ~Misbehaving() override { qunsetenv("TARSEL_DECODER"); }
};

template <class Decoder>
Picture order(Decoder& decoder, const char* text, const std::stop_token& stop = {}) {
    return decoder
        .decode({DecoderFormat::Metafile, text, {2, 1}}, {"WMF", QStringLiteral("file.wmf"), 1}, stop)
        .picture;
}

struct Outcome {
    qint32 number = 0; ///< 0 when it was decoded
    QString description;
    bool isLost = false;
};

template <class Decoder>
Outcome outcomeOf(Decoder& decoder, const char* text, const std::stop_token& stop = {}) {
    try {
        order(decoder, text, stop);
    } catch (const DecoderLost& error) {
        return {error.number, error.description, true};
    } catch (const TrappedError& error) {
        return {error.number, error.description};
    }
    return {};
}

bool isGone(pid_t child) {
    return ::kill(child, 0) != 0;
}

} // namespace

TEST(DecoderProcess, DecodesAndStaysForTheNextFileAlsoAfterNonsense) {
    DecoderProcess process;
    EXPECT_EQ(process.processId(), 0) << "no child before the first file";
    EXPECT_EQ(test::colorAt(decodeDrawing(process), 10, 10), (Rgb{255, 0, 0}));
    const pid_t child = process.processId();
    for (const char* nonsense : {"GIF89a nonsense", ""})
        EXPECT_EQ(outcomeOf(process, nonsense).number, ErrorNumber::UnreadableFile);
    decodeDrawing(process);
    EXPECT_EQ(process.processId(), child);
}

TEST(DecoderProcess, TheChildRunsWithinLimitsOfMemoryTimeAndDescriptors) {
    const Descriptor inherited(::fcntl(STDERR_FILENO, F_DUPFD, 50));
    DecoderProcess process;
    decodeDrawing(process);
    const auto limitOf = [&](decltype(RLIMIT_AS) resource) {
        rlimit found = {};
        EXPECT_EQ(::prlimit(process.processId(), resource, nullptr, &found), 0);
        EXPECT_LE(found.rlim_max, std::max(rlim_t(600), found.rlim_cur))
            << resource << ": it could be raised";
        return found.rlim_cur;
    };
    for (const auto none : {RLIMIT_CORE, RLIMIT_FSIZE, RLIMIT_NPROC})
        EXPECT_EQ(limitOf(none), 0u) << none;
    EXPECT_LE(limitOf(RLIMIT_NOFILE), 64u);
    EXPECT_LE(limitOf(RLIMIT_CPU), 60u);
#if !defined __SANITIZE_ADDRESS__ && !defined __SANITIZE_THREAD__ // they reserve more
    EXPECT_LE(limitOf(RLIMIT_AS), rlim_t(4) << 30);
#endif
    const QString folder = QStringLiteral("/proc/%1/").arg(process.processId());
    EXPECT_FALSE(QFileInfo(folder + QStringLiteral("fd/%1").arg(inherited.number())).isSymbolicLink());
    EXPECT_TRUE(QFileInfo(folder + QStringLiteral("fd/%1").arg(decoderSocket)).isSymbolicLink());
    EXPECT_TRUE(readWholeFile(folder + QStringLiteral("status")).contains("NoNewPrivs:\t1"));
}

TEST(DecoderProcess, TheChildIsKilledWithItsParentWhateverItDoes) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    EXPECT_EQ(test::inChild([&] {
                  DecoderProcess process;
                  decodeDrawing(process);
                  const pid_t child = process.processId();
                  ::kill(child, SIGSTOP); // else it would see that its socket is closed
                  return ::write(ends[1], &child, sizeof child) == sizeof child ? 0 : 1;
              }),
              0);
    pid_t child = 0;
    ASSERT_EQ(::read(ends[0], &child, sizeof child), ssize_t(sizeof child));
    const Descriptor reader(ends[0]), writer(ends[1]), process(int(::syscall(SYS_pidfd_open, child, 0)));
    pollfd end{process.number(), POLLIN, 0};
    if (process.isOpen() && ::poll(&end, 1, 10'000) != 1) {
        ADD_FAILURE() << "it goes on";
        ::kill(child, SIGKILL);
    }
}

TEST_F(Misbehaving, ABadAnswerFailsItsFileAloneAndLeavesNoProcess) {
    constexpr struct {
        const char* order;
        const char* fact;
        bool isLost; ///< else the child answered and goes on
    } cases[] = {
        {"bad words", ": a??b", false},
        {"shrink the memory for pixels", ": a??b", false},
        {"change the file", ": a??b", false},
        {"look at the environment", ": a??b", false},
        {"an odd number of channels", "broke off", true},
        {"send descriptors", "broke off", true},
        {"half an answer", "broke off", true},
        {"answer an earlier request", "broke off", true},
        {"close the socket", "broke off", true},
        {"exit", "status 3", true},
        {"crash", "signal 6", true},
#if !defined __SANITIZE_ADDRESS__ && !defined __SANITIZE_THREAD__ // they need more system calls
        {"locked: open a file", "signal 31", true},
        {"locked: open a socket", "signal 31", true},
        {"locked: start a shell", "signal 31", true},
        {"locked: start a process", "signal 31", true},
        {"locked: signal the parent", "signal 31", true},
        {"locked: make memory executable", "signal 31", true},
        {"locked: raise a limit", "signal 31", true},
        {"locked: nothing else", ": a??b", false},
#endif
    };
    for (const auto& c : cases) {
        DecoderProcess process;
        order(process, "answer");
        const pid_t child = process.processId();
        const Outcome outcome = outcomeOf(process, c.order);
        EXPECT_EQ(outcome.number, ErrorNumber::UnreadableFile) << c.order;
        EXPECT_TRUE(outcome.description.contains(QLatin1String("file.wmf"))) << c.order;
        EXPECT_TRUE(outcome.description.contains(QLatin1String(c.fact))) << qPrintable(outcome.description);
        EXPECT_EQ(outcome.isLost, c.isLost) << c.order;
        EXPECT_EQ(isGone(child), c.isLost) << c.order;
    }
}

TEST_F(Misbehaving, AChildThatHangsIsEndedAtTheTimeLimit) {
    DecoderProcess process(std::chrono::milliseconds(200));
    order(process, "answer");
    const pid_t child = process.processId();
    const Outcome outcome = outcomeOf(process, "hang");
    EXPECT_TRUE(outcome.description.contains(QLatin1String("longer than 0.2 seconds")));
    EXPECT_TRUE(outcome.isLost);
    EXPECT_TRUE(isGone(child));
}

TEST_F(Misbehaving, AChildThatDiesBetweenTwoFilesCostsNoFile) {
    DecoderProcess process;
    order(process, "answer, then exit");
    siginfo_t ended = {};
    ::waitid(P_PID, id_t(process.processId()), &ended, WEXITED | WNOWAIT);
    EXPECT_EQ(test::colorAt(order(process, "answer"), 0, 0), (Rgb{7, 7, 7}));
}

TEST_F(Misbehaving, AStopEndsTheWaitForAnAnswerAndTheChild) {
    DecoderProcess process;
    order(process, "answer");
    const pid_t child = process.processId();
    std::stop_source stop;
    std::thread stopper([&] {
        while (!process.isWaiting())
            std::this_thread::yield();
        stop.request_stop();
    });
    EXPECT_EQ(outcomeOf(process, "hang", stop.get_token()).number, ErrorNumber::Interrupted);
    stopper.join();
    EXPECT_TRUE(isGone(child));
    EXPECT_EQ(outcomeOf(process, "answer").number, 0);
}

TEST_F(Misbehaving, AHangingFileKeepsOneOfThePoolsChildrenAndAStopEndsTheWaitForOne) {
    DecoderPool pool(2);
    std::stop_source stop;
    const auto hang = [&] {
        EXPECT_EQ(outcomeOf(pool, "hang", stop.get_token()).number, ErrorNumber::Interrupted);
    };
    const auto waitForBusy = [&](int count) {
        while (pool.busyCount() < count)
            std::this_thread::yield();
    };
    std::thread first(hang);
    waitForBusy(1);
    EXPECT_EQ(outcomeOf(pool, "answer").number, 0);
    std::thread second(hang);
    waitForBusy(2);
    std::thread waiting(hang);
    stop.request_stop();
    for (std::thread* thread : {&first, &second, &waiting})
        thread->join();
    EXPECT_EQ(pool.busyCount(), 0);
    EXPECT_EQ(outcomeOf(pool, "answer").number, 0);
}

} // namespace tarsel
