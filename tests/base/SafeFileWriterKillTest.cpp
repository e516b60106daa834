// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "base/TemporaryFile.h"
#include "tests/support/ForkedChild.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <csignal>
#include <gtest/gtest.h>
#include <memory>
#include <sys/syscall.h>
#include <unistd.h>
#include <vector>

using namespace tarsel;

namespace {

/// Versions of one picture file: each of another length, filled with its own letter.
QByteArray version(int number) {
    return QByteArray(20000 + 3777 * (number % 7), char('a' + number % 7));
}

bool isCompleteVersion(const QByteArray& bytes) {
    for (int number = 0; number < 7; ++number) {
        if (bytes == version(number))
            return true;
    }
    return false;
}

QStringList temporaries(const QString& folder) {
    return QDir(folder).entryList({QStringLiteral(".tarsel-*.part")}, QDir::Files | QDir::Hidden);
}

/// With and without files that have no name yet.
class SafeWriterKill : public testing::TestWithParam<bool> {
protected:
    void SetUp() override { write("old.jpg", 0); }

    QString in(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }
    void write(const char* name, int number) const { writeFileSafely(in(name), version(number)); }

    /// A child that ends after its file has a name of its own, as if it was killed there.
    void leaveDebris() const {
        EXPECT_EQ(test::inChild([&] {
                      if (GetParam())
                          test::refuseUnnamedFiles();
                      TemporaryFile file(QFile::encodeName(folder.path()), 0600, {});
                      try {
                          file.putInPlace("folder", true); // named, and refused
                      } catch (int) {
                          ::_exit(1);
                      }
                      return 0;
                  }),
                  1);
    }

    QTemporaryDir folder;
};

} // namespace

INSTANTIATE_TEST_SUITE_P(UnnamedAndNamed, SafeWriterKill, testing::Bool());

TEST_P(SafeWriterKill, AKillBeforeAnySystemCallLeavesEveryFileComplete) {
    int kills = 0;
    for (const int call : {SYS_openat, SYS_write, SYS_fchown, SYS_fchmod, SYS_fsync, SYS_linkat, SYS_renameat,
                           SYS_unlinkat, SYS_close})
        for (const char* name : {"old.jpg", "new.jpg"}) {
            const int end = test::inChild([&] {
                if (GetParam())
                    test::refuseUnnamedFiles();
                test::dieAtSystemCall(call);
                write(name, 1);
                return 0;
            });
            kills += end == -SIGSYS;
            EXPECT_TRUE(end == 0 || end == -SIGSYS) << end;
            EXPECT_TRUE(isCompleteVersion(readWholeFile(in("old.jpg")))) << call;
            if (QFile::exists(in("new.jpg"))) {
                EXPECT_EQ(readWholeFile(in("new.jpg")), version(1)) << call;
            }
            QFile::remove(in("new.jpg"));
            EXPECT_LE(temporaries(folder.path()).size(), 1); // the next writer removes it
        }
    EXPECT_GE(kills, 12);
    write("old.jpg", 1);
    EXPECT_TRUE(temporaries(folder.path()).isEmpty());
}

TEST_P(SafeWriterKill, EveryWriterRemovesWhatADeadOneLeftAndNothingElse) {
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("folder")));
    const QStringList ofTheUser = {QStringLiteral(".tarsel-0-0123456789abcdef.part"),
                                   QStringLiteral(".tarsel-1.part"), QStringLiteral(".tarsel-mine.part")};
    for (const QString& name : ofTheUser) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    for (const char* name : {"old.jpg", "new.jpg"}) {
        leaveDebris();
        ASSERT_EQ(temporaries(folder.path()).size(), ofTheUser.size() + 1);
        write(name, 1); // this process has written here before
        EXPECT_EQ(temporaries(folder.path()), ofTheUser);
    }
}

TEST_P(SafeWriterKill, WritersInOneFolderLeaveEachOthersFilesAlone) {
    EXPECT_EQ(test::inChild([&] {
                  if (GetParam())
                      test::refuseUnnamedFiles();
                  std::vector<std::unique_ptr<SafeFileWriter>> writers;
                  for (int i = 0; i < 12; ++i) // more than the names that every writer looks at
                      writers.push_back(std::make_unique<SafeFileWriter>(in("w%1.jpg").arg(i)));
                  for (const auto& writer : writers) {
                      writer->write(version(3));
                      writer->commit();
                  }
                  return 0;
              }),
              0);
    for (int i = 0; i < 12; ++i)
        EXPECT_EQ(readWholeFile(in("w%1.jpg").arg(i)), version(3));
    EXPECT_TRUE(temporaries(folder.path()).isEmpty());
}
