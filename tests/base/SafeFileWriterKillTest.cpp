// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <random>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace tarsel;

namespace {

/// Versions of one picture file: each of another length, filled with its own letter.
QByteArray version(int number) {
    return QByteArray(20000 + 3777 * (number % 7), char('a' + number % 7));
}

bool isWholeVersion(const QByteArray& bytes) {
    for (int number = 0; number < 7; ++number) {
        if (bytes == version(number))
            return true;
    }
    return false;
}

QStringList temporaries(const QString& folder) {
    return QDir(folder).entryList({QStringLiteral(".tarsel-*.part")}, QDir::Files | QDir::Hidden);
}

/// A child that overwrites a file, and makes new ones, until it is killed after so many microseconds.
void writeUntilKilled(const QString& folder, long microseconds) {
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        for (int number = 0;; ++number) {
            writeFileSafely(folder + QStringLiteral("/old.jpg"), version(number));
            writeFileSafely(folder + QStringLiteral("/new%1.jpg").arg(number % 50), version(number));
        }
    }
    const timespec duration = {0, microseconds * 1000};
    ::nanosleep(&duration, nullptr);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
}

} // namespace

TEST(SafeWriterKill, AKillAtAnyMomentLeavesEveryFileWhole) {
    const QTemporaryDir folder;
    writeFileSafely(folder.filePath(QStringLiteral("old.jpg")), version(0));
    std::mt19937 random(11);
    for (int kill = 0; kill < 150; ++kill) {
        writeUntilKilled(folder.path(), 500 + long(random() % 12000));
        const QStringList pictures = QDir(folder.path()).entryList({QStringLiteral("*.jpg")}, QDir::Files);
        ASSERT_TRUE(pictures.contains(QStringLiteral("old.jpg")));
        for (const QString& picture : pictures)
            ASSERT_TRUE(isWholeVersion(readWholeFile(folder.filePath(picture)))) << qPrintable(picture);
        // The one moment that leaves debris lies between naming the file and renaming it; the next child
        // removes it before it writes.
        ASSERT_LE(temporaries(folder.path()).size(), 1);
    }
}

TEST(SafeWriterKill, RemainsOfDeadWritersAreRemovedAndFilesOfLivingOnesAreNot) {
    const QTemporaryDir folder;
    const QString dead = folder.filePath(QStringLiteral(".tarsel-1.part"));
    const QString alive = folder.filePath(QStringLiteral(".tarsel-2.part"));
    const QString foreign = folder.filePath(QStringLiteral(".other.part"));
    for (const QString& path : {dead, alive, foreign}) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    const int held = ::open(QFile::encodeName(alive).constData(), O_RDWR);
    ASSERT_EQ(::flock(held, LOCK_EX | LOCK_NB), 0);
    writeFileSafely(folder.filePath(QStringLiteral("a.jpg")), "x");
    EXPECT_FALSE(QFile::exists(dead));
    EXPECT_TRUE(QFile::exists(alive));
    EXPECT_TRUE(QFile::exists(foreign));
    ::close(held);
}
