// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "imaging/ImageBox.h"
#include "tests/cli/Program.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <csignal>
#include <ctime>
#include <gtest/gtest.h>
#include <random>

using namespace tarsel;
using namespace tarsel::test;

namespace {

constexpr int pictureCount = 20;

QString pictureName(int index) {
    return QStringLiteral("p%1.jpg").arg(index, 2, 10, QLatin1Char('0'));
}

QStringList pictureNames() {
    QStringList names;
    for (int i = 0; i < pictureCount; ++i)
        names << pictureName(i);
    return names;
}

/// Replaces its own sources by a smaller encoding of them.
QStringList replacing() {
    return commandLine("batch --source-folder --quality 30") + pictureNames();
}

QStringList debrisIn(const QString& folder) {
    return QDir(folder).entryList({QStringLiteral(".*")}, QDir::Files | QDir::Hidden);
}

void waitMicroseconds(long microseconds) {
    const timespec duration = {microseconds / 1'000'000, microseconds % 1'000'000 * 1000};
    ::nanosleep(&duration, nullptr);
}

/// The sources before and after a whole run, to which any mixture is compared.
class ReplacedPictures : public testing::Test {
protected:
    ReplacedPictures() {
        for (int i = 0; i < pictureCount; ++i)
            makePicture(folder.filePath(pictureName(i)), 300 + i, 200);
        before = contents();
        EXPECT_EQ(runProgram(replacing(), folder.path()).status, 0);
        after = contents();
        EXPECT_NE(before, after);
    }
    QList<QByteArray> contents() const {
        QList<QByteArray> all;
        for (const QString& name : pictureNames())
            all << readWholeFile(folder.filePath(name));
        return all;
    }
    void putBack() const {
        for (int i = 0; i < pictureCount; ++i)
            writeFileSafely(folder.filePath(pictureName(i)), before[i]);
    }
    /// Every picture is the old or the new one, the new ones in front. Gives their number.
    int replacedCount() const {
        const QList<QByteArray> now = contents();
        int count = 0;
        while (count < pictureCount && now[count] == after[count])
            ++count;
        for (int i = count; i < pictureCount; ++i)
            EXPECT_EQ(now[i], before[i]) << "picture " << i << " is neither the old nor the new one";
        return count;
    }

    void waitForFirstPicture() const {
        for (int i = 0; i < 100'000 && readWholeFile(folder.filePath(pictureName(0))) != after[0]; ++i)
            waitMicroseconds(100);
    }

    QTemporaryDir folder;
    QList<QByteArray> before, after;
};

} // namespace

TEST_F(ReplacedPictures, AKillAtAnyMomentLeavesEverySourceOldOrNew) {
    std::mt19937 random(23);
    QElapsedTimer clock;
    clock.start();
    putBack();
    ASSERT_EQ(endOf(startProgram(replacing(), folder.path())), 0);
    const long wholeRun = long(clock.nsecsElapsed() / 1000);
    int mixtures = 0;
    for (int kill = 0; kill < 60; ++kill) {
        putBack();
        const pid_t process = startProgram(replacing(), folder.path());
        waitMicroseconds(long(random() % (unsigned long)(wholeRun)));
        ::kill(process, SIGKILL);
        endOf(process);
        const int count = replacedCount();
        mixtures += count > 0 && count < pictureCount ? 1 : 0;
        EXPECT_LE(debrisIn(folder.path()).size(), 1);
    }
    EXPECT_GT(mixtures, 0) << "the kills did not hit the middle of a run";
    putBack(); // any writer removes what a dead one left
    EXPECT_TRUE(debrisIn(folder.path()).isEmpty());
    ImageBox box;
    for (const QString& name : pictureNames())
        box.LoadFromFile(folder.filePath(name));
}

TEST_F(ReplacedPictures, AnInterruptEndsTheRunBetweenTwoFiles) {
    int interrupted = 0;
    for (int attempt = 0; attempt < 50 && interrupted < 3; ++attempt) {
        putBack();
        QFile::remove(folder.filePath(QStringLiteral("output")));
        const pid_t process = startProgram(replacing(), folder.path());
        waitForFirstPicture();
        ::kill(process, SIGINT);
        const int status = endOf(process);
        const int count = replacedCount();
        EXPECT_TRUE(debrisIn(folder.path()).isEmpty());
        if (status != 130)
            continue; // it came behind the end of the run
        ++interrupted;
        const QByteArray output = readWholeFile(folder.filePath(QStringLiteral("output")));
        EXPECT_EQ(output.count("  written  "), count);
        EXPECT_EQ(output.count("(cancelled)"), pictureCount - count);
    }
    EXPECT_GT(interrupted, 0);
}
