// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "base/TrappedError.h"
#include "base/clsFile.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/ForkedChild.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

using namespace tarsel;
using test::errorNumberOf;
using test::FileSizeLimit;

namespace {

class SafeWriter : public testing::Test {
protected:
    QTemporaryDir folder;

    QString in(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }

    static QByteArray local(const QString& path) { return QFile::encodeName(path); }

    static struct stat facts(const QString& path) {
        struct stat found = {};
        EXPECT_EQ(::lstat(local(path).constData(), &found), 0) << qPrintable(path);
        return found;
    }

    static mode_t modeOf(const QString& path) { return facts(path).st_mode & 07777; }

    void setMode(const QString& path, mode_t mode) const {
        ASSERT_EQ(::chmod(local(path).constData(), mode), 0) << qPrintable(path);
    }

    /// The folder holds this file and no other.
    void expectOnly(const char* name, const QByteArray& bytes) const {
        EXPECT_EQ(everything(), QStringList{QString::fromUtf8(name)});
        EXPECT_EQ(readWholeFile(in(name)), bytes);
    }

    QStringList everything() const {
        return QDir(folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
};

std::string messageOf(const std::function<void()>& step) {
    try {
        step();
    } catch (const TrappedError& error) {
        return error.description.toStdString();
    }
    return {};
}

/// Drops root's power over permissions as long as it lives. Does nothing for others.
class OrdinaryUser {
public:
    OrdinaryUser() { (void)!::seteuid(::geteuid() == 0 ? 65534 : ::geteuid()); }
    ~OrdinaryUser() { (void)!::seteuid(::getuid()); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
};

} // namespace

TEST_F(SafeWriter, ANewFileGetsTheUsualModeAndLeavesNothingBeside) {
    const mode_t old = ::umask(027);
    writeFileSafely(in("a.jpg"), "abc");
    ::umask(old);
    EXPECT_EQ(modeOf(in("a.jpg")), mode_t(0640));
    expectOnly("a.jpg", QByteArray("abc"));
}

TEST_F(SafeWriter, AReplacedFileKeepsModeOwnerAndTheAttributesOfItsUser) {
    writeFileSafely(in("a.jpg"), "a longer old text");
    const QByteArray path = local(in("a.jpg"));
    setMode(in("a.jpg"), 0604);
    const bool isRoot = ::geteuid() == 0;
    ASSERT_EQ(isRoot ? ::chown(path.constData(), 1234, 2345) : 0, 0);
    const bool attributes = ::setxattr(path.constData(), "user.comment", "mine", 4, 0) == 0;
    writeFileSafely(in("a.jpg"), "new");
    expectOnly("a.jpg", "new");
    const struct stat found = facts(in("a.jpg"));
    EXPECT_EQ(found.st_mode & 07777, mode_t(0604));
    EXPECT_EQ(found.st_uid, isRoot ? 1234u : ::geteuid());
    EXPECT_EQ(found.st_gid, isRoot ? 2345u : ::getegid());
    char value[8] = {};
    EXPECT_EQ(::getxattr(path.constData(), "user.comment", value, sizeof value), attributes ? 4 : -1);
}

TEST_F(SafeWriter, LinksStayLinksAndTheirTargetIsWrittenOrMade) {
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("deep")));
    ASSERT_EQ(::symlink("deep/second", local(in("first")).constData()), 0);
    ASSERT_EQ(::symlink("real.jpg", local(in("deep/second")).constData()), 0);
    for (const char* bytes : {"made", "written over"}) {
        writeFileSafely(in("first"), bytes);
        EXPECT_TRUE(S_ISLNK(facts(in("first")).st_mode));
        EXPECT_TRUE(S_ISLNK(facts(in("deep/second")).st_mode));
        EXPECT_TRUE(S_ISREG(facts(in("deep/real.jpg")).st_mode));
        EXPECT_EQ(readWholeFile(in("deep/real.jpg")), QByteArray(bytes));
    }
}

TEST_F(SafeWriter, WithoutACommitTheOldFileStaysAndNothingElse) {
    writeFileSafely(in("a.jpg"), "old");
    for (const char* name : {"a.jpg", "new.jpg"})
        SafeFileWriter(in(name)).write("half of the new");
    expectOnly("a.jpg", "old");
}

TEST_F(SafeWriter, ALibraryMayWriteByPathOrByDescriptor) {
    for (const bool replaces : {false, true}) {
        SafeFileWriter writer(in("a.jpg"));
        QFile library(writer.temporaryPath());
        ASSERT_TRUE(library.open(QIODevice::WriteOnly));
        library.write(replaces ? "second" : "first and longer");
        library.close();
        ASSERT_EQ(::lseek(writer.descriptor(), 0, SEEK_END), replaces ? 6 : 16);
        writer.write("!");
        writer.commit();
        EXPECT_EQ(readWholeFile(in("a.jpg")), QByteArray(replaces ? "second!" : "first and longer!"));
    }
}

TEST_F(SafeWriter, TargetsThatAreNotFilesAreRefusedAndStay) {
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("folder")));
    ASSERT_EQ(::mkfifo(local(in("pipe")).constData(), 0600), 0);
    ASSERT_EQ(::symlink("loop", local(in("loop")).constData()), 0);
    ASSERT_EQ(::symlink("folder", local(in("linked")).constData()), 0);
    const struct {
        QString path;
        qint32 number;
    } cases[] = {{in("folder"), 5},
                 {in("folder/"), 5},
                 {in("pipe"), 5},
                 {in("loop"), 5},
                 {in("linked"), 5},
                 {in("missing/a.jpg"), ErrorNumber::PathNotFound},
                 {QString(), ErrorNumber::PathNotFound},
                 {in("pipe/a.jpg"), ErrorNumber::PathNotFound},
                 {in("a") + QChar(u'\0') + QStringLiteral("b"), ErrorNumber::PathNotFound},
                 {in("a").leftJustified(5000, QLatin1Char('a')), 5}};
    for (const auto& c : cases)
        EXPECT_EQ(errorNumberOf([&] { writeFileSafely(c.path, "x"); }), c.number) << qPrintable(c.path);
    EXPECT_EQ(everything().size(), 4);
}

TEST_F(SafeWriter, WithoutPermissionNothingChanges) {
    writeFileSafely(in("a.jpg"), "old");
    setMode(in("a.jpg"), 0444);
    setMode(folder.path(), 0777);
    {
        const OrdinaryUser user;
        EXPECT_EQ(errorNumberOf([&] { writeFileSafely(in("a.jpg"), "x"); }), ErrorNumber::PermissionDenied);
    }
    setMode(in("a.jpg"), 0666);
    setMode(folder.path(), 0555);
    {
        const OrdinaryUser user;
        EXPECT_EQ(errorNumberOf([&] { writeFileSafely(in("a.jpg"), "x"); }), ErrorNumber::PermissionDenied);
        EXPECT_EQ(messageOf([&] { writeFileSafely(in("b.jpg"), "x"); }),
                  "Permission denied: " + folder.path().toStdString());
    }
    setMode(folder.path(), 0700);
    expectOnly("a.jpg", "old");
}

TEST_F(SafeWriter, ADiskThatFillsUpLeavesTheOldFileAndNoDebris) {
    writeFileSafely(in("a.jpg"), "old");
    reportFileSizeLimitAsError();
    {
        const FileSizeLimit limit(1000);
        SafeFileWriter writer(in("a.jpg"));
        EXPECT_EQ(errorNumberOf([&] { writer.write(QByteArray(5000, 'x')); }), ErrorNumber::DiskFull);
        EXPECT_NE(errorNumberOf([&] { writer.commit(); }), 0);
        EXPECT_EQ(errorNumberOf([&] { writeFileSafely(in("new.jpg"), QByteArray(5000, 'x')); }),
                  ErrorNumber::DiskFull);
    }
    expectOnly("a.jpg", QByteArray("old"));
}

TEST_F(SafeWriter, AListFileThatFindsTheDiskFullAtItsCloseLeavesTheOldOne) {
    writeFileSafely(in("a.ibf"), "old");
    clsFile file;
    ASSERT_TRUE(file.OpenForWrite(in("a.ibf")));
    file.writeline(QString(5000, QLatin1Char('x')));
    reportFileSizeLimitAsError();
    {
        const FileSizeLimit limit(1000);
        EXPECT_EQ(errorNumberOf([&] { file.closefile(); }), ErrorNumber::DiskFull);
    }
    EXPECT_FALSE(file.isOpen());
    expectOnly("a.ibf", QByteArray("old"));
}

TEST_F(SafeWriter, TheBytesAreOnTheDiskBeforeTheOldFileGoes) {
    writeFileSafely(in("a.jpg"), "old");
    EXPECT_EQ(test::inChild([&] {
                  test::failSystemCall(SYS_fsync, EIO);
                  return errorNumberOf([&] { writeFileSafely(in("a.jpg"), "new"); });
              }),
              ErrorNumber::InvalidCall);
    expectOnly("a.jpg", QByteArray("old"));
}

TEST_F(SafeWriter, WithoutUnnamedFilesTheResultIsTheSame) {
    writeFileSafely(in("a.jpg"), "old");
    setMode(in("a.jpg"), 0604);
    EXPECT_EQ(test::inChild([&] {
                  test::refuseUnnamedFiles();
                  ::umask(027);
                  writeFileSafely(in("a.jpg"), "new");
                  writeFileSafely(in("b.jpg"), "new");
                  SafeFileWriter dropped(in("c.jpg"));
                  return everything().size() == 3 ? 0 : 1; // the third under a name of its own
              }),
              0);
    writeFileSafely(in("a.jpg"), readWholeFile(in("a.jpg")) + "er"); // and the dropped one goes
    EXPECT_EQ(everything(), QStringList({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")}));
    EXPECT_EQ(readWholeFile(in("a.jpg")), QByteArray("newer"));
    EXPECT_EQ(modeOf(in("a.jpg")), mode_t(0604));
    EXPECT_EQ(modeOf(in("b.jpg")), mode_t(0640));
}

TEST_F(SafeWriter, AFileThatAppearsUnderANewNameStaysWhateverTheFileSystemCanDo) {
    const std::function<void()> fileSystems[] = {[] {}, test::refuseUnnamedFiles,
                                                 [] {
                                                     test::refuseUnnamedFiles();
                                                     test::failSystemCall(SYS_renameat2, EINVAL);
                                                 }};
    for (const auto& restrict : fileSystems) {
        EXPECT_EQ(test::inChild([&] {
                      restrict();
                      SafeFileWriter late(in("a.jpg"));
                      late.write("new");
                      writeFileSafely(in("a.jpg"), "theirs");
                      return !late.commitAsNew() && !writeNewFileSafely(in("a.jpg"), "new") &&
                                     writeNewFileSafely(in("b.jpg"), "new")
                                 ? 0
                                 : 1;
                  }),
                  0);
        EXPECT_EQ(readWholeFile(in("a.jpg")), QByteArray("theirs"));
        EXPECT_TRUE(QFile::remove(in("a.jpg")));
        expectOnly("b.jpg", "new");
        EXPECT_TRUE(QFile::remove(in("b.jpg")));
    }
    EXPECT_EQ(test::inChild([&] {
                  test::refuseUnnamedFiles();
                  test::failSystemCall(SYS_renameat2, ENOSPC);
                  return errorNumberOf([&] { writeNewFileSafely(in("c.jpg"), "new"); });
              }),
              ErrorNumber::DiskFull)
        << "not as if the name was taken";
    EXPECT_EQ(everything(), QStringList());
}

TEST_F(SafeWriter, ReadingReportsWhatIsWrong) {
    EXPECT_EQ(errorNumberOf([&] { readWholeFile(in("missing")); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(errorNumberOf([&] { readWholeFile(folder.path()); }), ErrorNumber::InvalidCall);
    EXPECT_EQ(errorNumberOf([&] { readWholeFile(QStringLiteral("/dev/zero")); }), ErrorNumber::InvalidCall);
    writeFileSafely(in("secret"), "x");
    setMode(in("secret"), 0);
    setMode(folder.path(), 0777);
    const OrdinaryUser user;
    EXPECT_EQ(errorNumberOf([&] { readWholeFile(in("secret")); }), ErrorNumber::PermissionDenied);
}
