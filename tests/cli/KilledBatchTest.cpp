// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "tests/cli/Program.h"

#include <QDir>
#include <QFile>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/resource.h>
#include <tuple>
#include <unistd.h>

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

/// The sources before and after a complete run, to which any mixture is compared.
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
    /// Every picture is the old or the new one, the new ones first. Returns their number.
    int replacedCount() const {
        const QList<QByteArray> now = contents();
        int count = 0;
        while (count < pictureCount && now[count] == after[count])
            ++count;
        for (int i = count; i < pictureCount; ++i)
            EXPECT_EQ(now[i], before[i]) << "picture " << i << " is neither the old nor the new one";
        return count;
    }

    QTemporaryDir folder;
    QList<QByteArray> before, after;
};

/// Watches a folder for files that take the place of others.
class Replacements {
public:
    explicit Replacements(const QString& folder, uint32_t event = IN_MOVED_TO) :
        m_events(::inotify_init1(IN_CLOEXEC)) {
        EXPECT_GE(::inotify_add_watch(m_events, QFile::encodeName(folder).constData(), event), 0);
    }
    ~Replacements() { ::close(m_events); }
    Replacements(const Replacements&) = delete;
    Replacements& operator=(const Replacements&) = delete;

    void waitForOne() const {
        constexpr int longest = 60'000;
        pollfd events{m_events, POLLIN, 0};
        EXPECT_EQ(::poll(&events, 1, longest), 1);
    }

private:
    const int m_events;
};

/// A pipe for the results of a run, with room for few rows: without a reader the run stands still among them.
class NarrowPipe {
public:
    NarrowPipe() {
        EXPECT_EQ(::pipe2(m_ends, O_CLOEXEC), 0);
        const int capacity = ::fcntl(m_ends[1], F_SETPIPE_SZ, 4096);
        EXPECT_GT(capacity, roomOfFewRows);
        m_filler = QByteArray(capacity - roomOfFewRows, '.');
        EXPECT_EQ(::write(m_ends[1], m_filler.constData(), size_t(m_filler.size())), m_filler.size());
    }
    ~NarrowPipe() {
        ::close(m_ends[0]);
        closeWriting();
    }
    NarrowPipe(const NarrowPipe&) = delete;
    NarrowPipe& operator=(const NarrowPipe&) = delete;

    int writing() const { return m_ends[1]; }
    /// All that was written, once the writer has ended.
    QByteArray rest() {
        closeWriting();
        QByteArray all;
        char bytes[512];
        for (ssize_t count = 1; (count = ::read(m_ends[0], bytes, sizeof bytes)) > 0;)
            all.append(bytes, count);
        return all.mid(m_filler.size());
    }

private:
    static constexpr int roomOfFewRows = 150;

    void closeWriting() {
        if (m_ends[1] >= 0)
            ::close(m_ends[1]);
        m_ends[1] = -1;
    }

    int m_ends[2] = {-1, -1};
    QByteArray m_filler;
};

} // namespace

TEST_F(ReplacedPictures, ASignalInTheMiddleKeepsTheFirstNewOnesAndTheOtherOldOnes) {
    for (const int signal : {SIGINT, SIGTERM, SIGKILL}) {
        putBack();
        NarrowPipe pipe;
        const Replacements replacements(folder.path());
        const pid_t process = startProgram(replacing(), folder.path(), pipe.writing());
        replacements.waitForOne();
        ::kill(process, signal);
        const QByteArray output = pipe.rest();
        EXPECT_EQ(endOf(process), signal == SIGKILL ? -SIGKILL : 130);
        const int count = replacedCount();
        EXPECT_GT(count, 0);
        EXPECT_LT(count, pictureCount);
        if (signal == SIGKILL)
            continue;
        EXPECT_EQ(output.count("  written  "), count);
        EXPECT_EQ(output.count("(cancelled)"), pictureCount - count);
        EXPECT_TRUE(debrisIn(folder.path()).isEmpty());
    }
}

TEST_F(ReplacedPictures, APictureOverTheSizeLimitIsARowThatFailedAndKeepsItsSource) {
    putBack();
    const ProgramRun run = runProgram(replacing(), folder.path(), [] {
        constexpr rlimit limit = {100, 100};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    });
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output.count("Disk full"), 1) << run.output.constData();
    EXPECT_EQ(contents(), before);
    EXPECT_TRUE(debrisIn(folder.path()).isEmpty());
}

TEST_F(ReplacedPictures, ASliceThatWasKilledIsRunAgainWithoutHarm) {
    const QString made = folder.filePath(QStringLiteral("made"));
    const auto contentsMade = [&] {
        QList<QByteArray> all;
        for (const QString& name : QDir(made).entryList(QDir::Files | QDir::Hidden))
            all << readWholeFile(made + QLatin1Char('/') + name);
        return all;
    };
    const QStringList slice = commandLine("batch --out made --name generic --rows 6-19") + pictureNames();
    QDir().mkpath(made);
    NarrowPipe pipe;
    const Replacements firstFile(made, IN_CREATE | IN_MOVED_TO);
    const pid_t process = startProgram(slice, folder.path(), pipe.writing());
    firstFile.waitForOne();
    ::kill(process, SIGKILL);
    std::ignore = pipe.rest();
    EXPECT_EQ(endOf(process), -SIGKILL);
    EXPECT_LT(contentsMade().size(), 14);
    EXPECT_EQ(runProgram(slice, folder.path()).status, 0);
    const QList<QByteArray> repeated = contentsMade();
    EXPECT_EQ(repeated.size(), 14) << "no debris";
    QDir(made).removeRecursively();
    EXPECT_EQ(runProgram(slice, folder.path()).status, 0);
    EXPECT_EQ(contentsMade(), repeated) << "as if it had run once";
}
