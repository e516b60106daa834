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

/// The real program with a decoder that does what a GIF file says after its header.
class BadDecoder : public testing::Test {
protected:
    BadDecoder() {
        const QString decoder = folder.path(QStringLiteral("decoder"));
        EXPECT_TRUE(QFile::link(QStringLiteral(TARSEL_MISBEHAVING_DECODER), decoder));
        EXPECT_TRUE(QFile(decoder + QStringLiteral(".requests")).open(QIODevice::WriteOnly));
        qputenv("TARSEL_DECODER", decoder.toLocal8Bit());
    }
    ~BadDecoder() override { qunsetenv("TARSEL_DECODER"); }
    pid_t startBatch(const char* order) {
        QFile gif(folder.path(QStringLiteral("0.gif")));
        EXPECT_TRUE(gif.open(QIODevice::WriteOnly));
        gif.write(QByteArray("GIF89a\x02\0\x01\0\0\0\0", 13) + order);
        gif.close();
        return startProgram(commandLine("batch --out made 0.gif a.jpg"), folder.path());
    }
    QByteArray contentOf(const char* name) {
        QFile file(folder.path(QString::fromLatin1(name)));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    const PictureFolder folder;
};

} // namespace

TEST_F(BadDecoder, ASignalEndsTheWaitForItAndTheRowIsCancelled) {
    const pid_t process = startBatch("hang");
    while (!hasChild(process))
        std::this_thread::yield();
    ::kill(process, SIGTERM);
    EXPECT_EQ(endOf(process), 130);
    EXPECT_EQ(contentOf("output").count("(cancelled)"), 2);
    EXPECT_EQ(folder.files(QStringLiteral("made")), "");
}

TEST_F(BadDecoder, AFileThatCrashedItIsNotTriedASecondTime) {
    EXPECT_EQ(endOf(startBatch("crash")), 1);
    EXPECT_TRUE(contentOf("output").contains("crashed (signal 6)")) << contentOf("output").toStdString();
    EXPECT_EQ(contentOf("decoder.requests").size(), 1);
}
