// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/DecoderProcess.h"
#include "base/TrappedError.h"
#include "tests/support/TestPictures.h"

#include <csignal>
#include <gtest/gtest.h>
#include <thread>

namespace tarsel {
namespace {

/// Eight pixels in a row, black and white in turn.
const QByteArray Wbmp("\0\0\x08\x01\xAA", 5);
const FileUnderTest File{"WBMP", QStringLiteral("row.wbmp"), 5};

Picture decodeRow(DecoderProcess& process) {
    return process.decode(DecoderFormat::Wbmp, Wbmp, File);
}

QString errorOfRow(DecoderProcess& process) {
    try {
        decodeRow(process);
    } catch (const TrappedError& error) {
        EXPECT_EQ(error.number, ErrorNumber::UnreadableFile);
        return error.description;
    }
    return {};
}

TEST(DecoderProcess, givesThePixelsAndStaysForTheNextFile) {
    DecoderProcess process;
    EXPECT_EQ(process.processId(), 0) << "no child before the first file";
    const Picture row = decodeRow(process);
    ASSERT_EQ(row.width(), 8);
    EXPECT_EQ(test::colorAt(row, 0, 0), (Rgb{255, 255, 255}));
    EXPECT_EQ(test::colorAt(row, 1, 0), (Rgb{0, 0, 0}));
    const pid_t child = process.processId();
    decodeRow(process);
    EXPECT_EQ(process.processId(), child);
}

TEST(DecoderProcess, replacesAChildThatDiedBetweenTwoFiles) {
    DecoderProcess process;
    decodeRow(process);
    const pid_t child = process.processId();
    ::kill(child, SIGKILL);
    // Whether the death shows before or after the file was handed over, the file after it is read.
    errorOfRow(process);
    EXPECT_EQ(decodeRow(process).width(), 8);
    EXPECT_NE(process.processId(), child);
}

TEST(DecoderProcess, aChildKilledInTheMiddleOfAFileFailsThatFileAlone) {
    DecoderProcess process;
    decodeRow(process);
    const pid_t child = process.processId();
    ::kill(child, SIGSTOP); // it will never answer
    std::thread killer([&] {
        while (!process.isWaiting())
            std::this_thread::yield();
        ::kill(child, SIGKILL);
    });
    const QString message = errorOfRow(process);
    killer.join();
    EXPECT_TRUE(message.contains(QLatin1String("row.wbmp"))) << message.toStdString();
    EXPECT_TRUE(message.contains(QLatin1String("signal 9"))) << message.toStdString();
    EXPECT_EQ(decodeRow(process).width(), 8);
}

TEST(DecoderProcess, aChildThatHangsIsEndedAtTheTimeLimit) {
    DecoderProcess process;
    decodeRow(process);
    const pid_t child = process.processId();
    ::kill(child, SIGSTOP);
    process.setTimeLimit(std::chrono::milliseconds(50));
    EXPECT_TRUE(errorOfRow(process).contains(QLatin1String("longer than")));
    process.setTimeLimit(std::chrono::seconds(20));
    EXPECT_EQ(decodeRow(process).width(), 8);
    EXPECT_NE(process.processId(), child);
    EXPECT_NE(::kill(child, 0), 0) << "the old child is gone";
}

TEST(DecoderProcess, nonsenseIsAnErrorThatTheChildSurvives) {
    DecoderProcess process;
    decodeRow(process);
    const pid_t child = process.processId();
    EXPECT_THROW(process.decode(DecoderFormat::Gif, "GIF89a nonsense", {"GIF", QStringLiteral("x.gif"), 15}),
                 TrappedError);
    EXPECT_THROW(process.decode(DecoderFormat::Gif, {}, {"GIF", QStringLiteral("empty.gif"), 0}),
                 TrappedError);
    decodeRow(process);
    EXPECT_EQ(process.processId(), child);
}

} // namespace
} // namespace tarsel
