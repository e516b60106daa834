// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/AcquiredFiles.h"
#include "base/SafeFileWriter.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>
#include <gtest/gtest.h>

namespace tarsel::test {

namespace {

class StartedProgram : public testing::Test {
protected:
    QString path(const char* name) const {
        return home.filePath(QStringLiteral("tarsel-jpeg/") + QLatin1String(name));
    }

    void startProgram(const QStringList& arguments = {}) { startIn(home.path(), program, arguments); }

    void startIn(const QString& dataHome, QProcess& process, const QStringList& arguments = {}) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        environment.insert(QStringLiteral("XDG_DATA_HOME"), dataHome);
        environment.insert(QStringLiteral("TMPDIR"), home.path());
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(channels);
        process.start(QStringLiteral(TARSEL_MAIN_PROGRAM), arguments);
        ASSERT_TRUE(process.waitForStarted());
    }

    bool hasRecord() const { return QFileInfo(path("tarsel-jpeg")).size() > 1000; }

    ~StartedProgram() override {
        if (program.state() != QProcess::NotRunning)
            program.kill();
        program.waitForFinished();
    }

    QTemporaryDir home;
    QProcess program;
    QProcess::ProcessChannelMode channels = QProcess::ForwardedErrorChannel;
};

class Termination : public StartedProgram, public testing::WithParamInterface<int> {};

} // namespace

/// The built program, from its first start to a signal.
TEST_P(Termination, ASignalRunsTheNormalEnd) {
    startProgram();
    ASSERT_TRUE(QTest::qWaitFor([&] { return hasRecord(); }, 60'000)) << "the first start writes the record";
    QDir().mkpath(path("Temp"));
    for (const char* name : {"Temp/scan1_4711.tif", "Temp/temp.jpg", "Temp/leftover", "tarsel-jpeg"})
        writeFileSafely(path(name), {});
    QFile::remove(path("tarsel-jpeg.ini"));
    QDir().mkpath(path("tarsel-jpeg.ini")); // can't be written, which nobody is asked about
    ASSERT_TRUE(QFileInfo::exists(path(".lock")));
    ASSERT_EQ(::kill(pid_t(program.processId()), GetParam()), 0);
    ASSERT_TRUE(program.waitForFinished(60'000));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_TRUE(hasRecord()) << "settings are stored";
    EXPECT_FALSE(QFileInfo::exists(path(".lock")));
    EXPECT_EQ(QDir(path("Temp")).entryList(QDir::Files, QDir::Name),
              QStringList({QStringLiteral("scan1_4711.tif"), QStringLiteral("temp.jpg")}));
}

/// Whichever comes first works, and the other one touches nothing of it.
TEST_F(StartedProgram, OfTwoStartsAtTheSameMomentOneWorksAndTheBasketIsKept) {
    const QByteArray basket = "\"/pictures/a.jpg\",\"\"\r\n";
    QDir().mkpath(path("Temp"));
    writeFileSafely(path("last-basket.ibd"), basket);
    acquiredFiles::list({path("Temp/1_10.tif")}, true);
    writeFileSafely(path("Temp/1_10.tif"), "page");
    for (int round = 0; round < 5; ++round) {
        SCOPED_TRACE(round);
        QProcess second;
        startProgram();
        startIn(home.path(), second);
        const auto owner = [&] {
            QFile lock(path(".lock"));
            return lock.open(QIODevice::ReadOnly) ? lock.readLine().trimmed().toLongLong() : 0;
        };
        ASSERT_TRUE(QTest::qWaitFor([&] { return owner() != 0 && hasRecord(); }, 60'000));
        QProcess& working = owner() == program.processId() ? program : second;
        QProcess& refused = &working == &program ? second : program;
        EXPECT_EQ(owner(), working.processId());
        // The message waits for its user; a signal is as good.
        EXPECT_FALSE(refused.waitForFinished(300));
        refused.terminate();
        EXPECT_TRUE(refused.waitForFinished(60'000));
        EXPECT_EQ(owner(), working.processId());
        working.terminate();
        ASSERT_TRUE(working.waitForFinished(60'000));
        EXPECT_EQ(working.exitCode(), 0);
        EXPECT_EQ(readWholeFile(path("last-basket.ibd")), basket);
        EXPECT_EQ(acquiredFiles::present(path("Temp")), QStringList{path("Temp/1_10.tif")});
        EXPECT_FALSE(QFileInfo::exists(path(".lock")));
    }
}

TEST_F(StartedProgram, WorksWhereItsFolderCannotBeMadeAndLeavesNothing) {
    const QString file = home.filePath(QStringLiteral("file"));
    writeFileSafely(file, {});
    startIn(file + QStringLiteral("/below"), program);
    const auto folders = [&] { return QDir(home.path()).entryList({QStringLiteral("tarsel-jpeg-*")}); };
    const auto record = [&] { return home.filePath(folders().value(0) + QStringLiteral("/tarsel-jpeg")); };
    ASSERT_TRUE(QTest::qWaitFor([&] { return QFileInfo(record()).size() > 1000; }, 60'000));
    program.terminate();
    ASSERT_TRUE(program.waitForFinished(60'000));
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_EQ(folders(), QStringList());
}

TEST_F(StartedProgram, AnswersItsOptionsWithoutAWindow) {
    for (const auto& [option, status, answer] : {std::tuple("--help", 0, "Usage: tarsel-jpeg [FILE]"),
                                                 {"--version", 0, "tarsel-jpeg "},
                                                 {"-x", 2, ""},
                                                 {"a.jpg b.jpg", 2, ""}}) {
        startProgram(QString::fromLatin1(option).split(u' '));
        EXPECT_TRUE(program.waitForFinished(60'000) && program.exitCode() == status) << option;
        EXPECT_TRUE(program.readAllStandardOutput().startsWith(answer)) << option;
    }
    channels = QProcess::SeparateChannels;
    startProgram({QStringLiteral("-platform"), QStringLiteral("none")});
    ASSERT_TRUE(program.waitForFinished(60'000));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit) << "a display that can't be opened is no crash";
    EXPECT_EQ(program.exitCode(), 1);
    const QByteArray said = program.readAllStandardError();
    EXPECT_TRUE(said.startsWith("tarsel-jpeg: no display could be opened.") &&
                said.contains("plugin \"none\""))
        << said.constData();
}

INSTANTIATE_TEST_SUITE_P(Signals, Termination, testing::Values(SIGTERM, SIGHUP, SIGINT));

} // namespace tarsel::test
