// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/Program.h"

#include <QDir>
#include <QFile>
#include <csignal>
#include <gtest/gtest.h>
#include <thread>

using namespace tarsel::test;

namespace {

bool hasChild(pid_t process) {
    const QDir tasks(QStringLiteral("/proc/%1/task").arg(process));
    for (const QString& thread : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile children(tasks.filePath(thread + QStringLiteral("/children")));
        if (children.open(QIODevice::ReadOnly) && !children.readAll().isEmpty())
            return true;
    }
    return false;
}

} // namespace

TEST(HangingDecoder, ASignalEndsTheWaitForItAndTheRowIsCancelled) {
    qputenv("TARSEL_DECODER", TARSEL_MISBEHAVING_DECODER);
    const PictureFolder folder;
    QFile gif(folder.path(QStringLiteral("0.gif")));
    ASSERT_TRUE(gif.open(QIODevice::WriteOnly));
    gif.write(QByteArray("GIF89a\x02\0\x01\0\0\0\0", 13));
    gif.close();
    const pid_t process = startProgram(commandLine("batch --out made 0.gif a.jpg"), folder.path());
    while (!hasChild(process))
        std::this_thread::yield();
    ::kill(process, SIGTERM);
    EXPECT_EQ(endOf(process), 130);
    QFile output(folder.path(QStringLiteral("output")));
    ASSERT_TRUE(output.open(QIODevice::ReadOnly));
    EXPECT_EQ(output.readAll().count("(cancelled)"), 2);
    EXPECT_EQ(folder.files(QStringLiteral("made")), "");
    qunsetenv("TARSEL_DECODER");
}
