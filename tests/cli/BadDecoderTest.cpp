// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "tests/cli/Program.h"
#include "tests/support/Metafiles.h"

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

/// The real program with a decoder that does what a metafile says after its headers.
class BadDecoder : public testing::Test {
protected:
    BadDecoder() {
        const QString decoder = folder.path("decoder");
        EXPECT_TRUE(QFile::link(QStringLiteral(TARSEL_MISBEHAVING_DECODER), decoder));
        EXPECT_TRUE(QFile(decoder + QStringLiteral(".requests")).open(QIODevice::WriteOnly));
        qputenv("TARSEL_DECODER", decoder.toLocal8Bit());
    }
    ~BadDecoder() override { qunsetenv("TARSEL_DECODER"); }
    pid_t startBatch(const char* order) {
        constexpr qsizetype headers = 40;
        tarsel::writeFileSafely(folder.path("0.wmf"), wmf({}).left(headers) + order);
        return startProgram(commandLine("batch --out made 0.wmf a.jpg"), folder.path());
    }
    QByteArray contentOf(const char* name) { return tarsel::readWholeFile(folder.path(name)); }

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
    EXPECT_EQ(folder.files("made"), "");
}

TEST_F(BadDecoder, AFileThatCrashedItIsNotTriedASecondTime) {
    EXPECT_EQ(endOf(startBatch("crash")), 1);
    EXPECT_TRUE(contentOf("output").contains("crashed (signal 6)")) << contentOf("output").toStdString();
    EXPECT_EQ(contentOf("decoder.requests").size(), 1);
}
