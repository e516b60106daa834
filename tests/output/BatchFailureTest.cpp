// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "tests/output/TestBasket.h"

#include <QDir>
#include <QFile>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

QString text(const char* latin1) {
    return QString::fromLatin1(latin1);
}

/// No file grows beyond that many bytes: what a full disk looks like to a writer.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &m_limit);
        const rlimit tight = {bytes, m_limit.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &tight);
    }
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &m_limit);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    rlimit m_limit = {};
    sighandler_t m_handler;
};

/// Root may write anywhere: it becomes a nobody for a while.
class WithoutPrivileges {
public:
    WithoutPrivileges() {
        if (::geteuid() == 0)
            m_changed = ::seteuid(nobody) == 0;
    }
    ~WithoutPrivileges() {
        if (m_changed) {
            EXPECT_EQ(::seteuid(0), 0);
        }
    }

private:
    static constexpr uid_t nobody = 65534;
    bool m_changed = false;
};

/// Three rows of which the middle one is `path`.
void addAround(TestBasket& basket, const QString& path) {
    basket.addPicture(text("a.jpg"));
    basket.addRow(path, text("b"));
    basket.addPicture(text("c.jpg"));
}

} // namespace

TEST(BatchFailure, AMissingSourceEndsTheRunAndIsNamed) {
    TestBasket basket;
    addAround(basket, basket.path(text("missing.jpg")));
    basket.desktop.onReport = [&] { EXPECT_FALSE(basket.progress.visible) << "the bar goes first"; };
    EXPECT_FALSE(basket.run());
    EXPECT_EQ(basket.states(), "written failed skipped");
    EXPECT_TRUE(basket.reasons().at(1).contains(text("missing.jpg")));
    EXPECT_EQ(basket.reasons().at(2), SkipReason::NotReached);
    EXPECT_EQ(basket.files(text("out")), "a.jpg");
    ASSERT_EQ(basket.desktop.reports.size(), 1u);
    EXPECT_EQ(basket.desktop.reports[0].ErrRoutine, text("fncSaveSinglePage"));
    EXPECT_TRUE(basket.desktop.reports[0].ErrSystem.startsWith(text("53 - ")));
    EXPECT_FALSE(basket.progress.visible);
}

TEST(BatchFailure, ADamagedPictureOfAKnownKindIsAnInvalidPicture) {
    TestBasket basket;
    const QString damaged = basket.path(text("b.jpg"));
    writeFileSafely(damaged, QByteArray::fromHex("ffd8ffe000104a46494600010100000100010000"));
    addAround(basket, damaged);
    EXPECT_FALSE(basket.run());
    EXPECT_EQ(basket.states(), "written failed skipped");
    EXPECT_TRUE(basket.desktop.reports.at(0).ErrSystem.startsWith(text("481 - ")));
}

TEST(BatchFailure, AFileThatIsNoPictureIsSkippedInSilence) {
    TestBasket basket;
    const QString prose = basket.path(text("b.jpg"));
    writeFileSafely(prose, "Dear Sir, this is a letter.");
    addAround(basket, prose);
    EXPECT_TRUE(basket.run());
    EXPECT_EQ(basket.states(), "written skipped written");
    EXPECT_TRUE(basket.desktop.reports.empty());
}

TEST(BatchFailure, AMissingFileOfTheOtherFormatsIsSkippedAndTheRunGoesOn) {
    TestBasket basket;
    addAround(basket, basket.path(text("missing.wbmp")));
    EXPECT_TRUE(basket.run());
    EXPECT_EQ(basket.states(), "written skipped written");
    EXPECT_EQ(basket.reasons().at(1), text("the file is missing"));
}

TEST(BatchFailure, ANameThatLacksAnUnreadableDateIsARemarkOnItsRow) {
    TestBasket basket;
    basket.settings.NameOption = 1;
    basket.settings.RenamePrefix = text("[EXIF Date]");
    basket.addPicture(text("a.jpg"), 8, 8, [](ImageBox& maker) {
        ASSERT_TRUE(maker.ExifSet(text("DateTime"), text("yesterday at noon..")));
    });
    EXPECT_TRUE(basket.run());
    EXPECT_EQ(basket.states(), "written");
    EXPECT_TRUE(basket.reasons().first().startsWith(text("the name lacks [EXIF Date]: ")));
    ASSERT_EQ(basket.desktop.reports.size(), 1u);
    EXPECT_EQ(basket.desktop.reports[0].ErrRoutine, text("fncRetrieveNamingString"));
    EXPECT_TRUE(basket.desktop.reports[0].ErrSystem.contains(basket.path(text("a.jpg"))));
}

TEST(BatchFailure, ABadSideFileIsNamedWithItsRecord) {
    TestBasket basket;
    basket.addPicture(text("a.jpg"));
    basket.settings.ImportEXIF = 1;
    basket.settings.ImportEXIFFile = basket.path(text("bad.xiff"));
    for (const char* record : {"\"DateTime\",\"never\"\r\n", "\"alone\"\r\n"}) {
        writeFileSafely(basket.settings.ImportEXIFFile, QByteArray("\"Artist\",\"Jo\"\r\n") + record);
        EXPECT_FALSE(basket.run());
        EXPECT_TRUE(basket.reasons().first().contains(text("bad.xiff, record 2: ")))
            << basket.reasons().first().toStdString();
        EXPECT_EQ(basket.reasons().first().count(text("bad.xiff")), 1);
    }
}

TEST(BatchFailure, ANameOutOfAnExifValueNeverLeavesTheFolder) {
    for (const char* value : {"../stolen", "1/60", "sub/deeper/x", "/tmp/absolute"}) {
        TestBasket basket;
        QDir().mkpath(basket.path(text("out/sub/deeper")));
        basket.settings.NameOption = 1;
        basket.settings.DestinationOption = 1;
        basket.settings.RenamePrefix = text("[EXIF Artist]");
        basket.addPicture(text("a.jpg"), 8, 8,
                          [&](ImageBox& maker) { ASSERT_TRUE(maker.ExifSet(text("Artist"), text(value))); });
        EXPECT_FALSE(basket.run()) << value;
        EXPECT_EQ(basket.states(), "failed");
        EXPECT_TRUE(basket.reasons().first().contains(text(value)));
        EXPECT_EQ(basket.files(), "a.jpg");
        EXPECT_EQ(basket.files(text("out")), "");
        EXPECT_EQ(basket.files(text("out/sub/deeper")), "");
    }
}

TEST(BatchFailure, ANameThatIsTooLongIsToldWithTheFile) {
    TestBasket basket;
    const QString file = basket.addPicture(text("a.jpg"));
    basket.pages.setText(0, QString(300, QLatin1Char('n')));
    EXPECT_FALSE(basket.run());
    EXPECT_TRUE(basket.reasons().first().contains(text("nnnn.jpg")));
    EXPECT_EQ(basket.files(text("out")), "");
    basket.pages.setText(0, QString(251, QLatin1Char('n')));
    EXPECT_TRUE(basket.run()) << "255 characters are a name";
}

TEST(BatchFailure, ACountBeyondSixteenBitsEndsTheRunAtItsRow) {
    TestBasket basket;
    basket.settings.NameOption = 2;
    basket.settings.RenameGenericPattern = text("32766");
    for (const char* name : {"a.jpg", "b.jpg", "c.jpg", "d.jpg"})
        basket.addPicture(text(name));
    EXPECT_FALSE(basket.run());
    EXPECT_EQ(basket.states(), "written written failed skipped");
    EXPECT_EQ(basket.files(text("out")), "Sample32766.jpg Sample32767.jpg");
    EXPECT_TRUE(basket.desktop.reports.at(0).ErrSystem.startsWith(text("6 - ")));
}

TEST(BatchFailure, AFolderThatIsGoneEndsTheRun) {
    TestBasket basket;
    basket.addPicture(text("a.jpg"));
    basket.settings.DestinationFolder = basket.path(text("gone/"));
    EXPECT_FALSE(basket.run());
    EXPECT_TRUE(basket.desktop.reports.at(0).ErrSystem.startsWith(text("76 - ")));
    EXPECT_TRUE(basket.reasons().first().contains(text("gone/a.jpg")));
}

TEST(BatchFailure, AFolderWithoutWritePermissionKeepsTheOldFile) {
    TestBasket basket;
    basket.addPicture(text("a.jpg"));
    const QString old = basket.path(text("out/a.jpg"));
    writeFileSafely(old, "old");
    for (const QString& folder : {basket.folder(), basket.path(text("out"))})
        ASSERT_TRUE(QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther |
                                                      QFile::ExeOther));
    {
        const WithoutPrivileges nobody;
        EXPECT_FALSE(basket.run());
    }
    for (const QString& folder : {basket.folder(), basket.path(text("out"))})
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_TRUE(basket.desktop.reports.at(0).ErrSystem.startsWith(text("70 - ")));
    EXPECT_EQ(readWholeFile(old), QByteArray("old"));
    EXPECT_EQ(basket.files(text("out")), "a.jpg");
}

TEST(BatchFailure, AFullDiskGivesItsErrorAndLeavesTheSourceAsItWas) {
    TestBasket basket;
    basket.settings.DestinationFolder = basket.folder();
    basket.settings.JpegQuality = 100;
    const QString source = basket.addPicture(text("a.jpg"), 200, 200);
    basket.addPicture(text("b.jpg"), 8, 8);
    const QByteArray before = readWholeFile(source);
    {
        const FileSizeLimit full(1000);
        EXPECT_FALSE(basket.run());
    }
    EXPECT_TRUE(basket.desktop.reports.at(0).ErrSystem.startsWith(text("61 - ")));
    EXPECT_EQ(basket.states(), "failed skipped");
    EXPECT_EQ(readWholeFile(source), before);
    EXPECT_EQ(basket.files(), "a.jpg b.jpg");
}

TEST(BatchFailure, ASourceThatIsCutShortIsSavedWithAWarning) {
    TestBasket basket;
    const QString source = basket.addPicture(text("a.jpg"), 160, 160);
    const QByteArray bytes = readWholeFile(source);
    writeFileSafely(source, bytes.left(bytes.size() * 3 / 4));
    EXPECT_TRUE(basket.run());
    EXPECT_EQ(basket.states(), "written");
    EXPECT_TRUE(basket.reasons().first().contains(text("damaged"))) << basket.reasons().first().toStdString();
}

TEST(BatchFailure, AFailingTaskIsToldAndThePictureIsSavedAsFarAsItCame) {
    TestBasket basket;
    basket.addTask(text("3"), text("resize"), {"False", "50"});
    basket.addTask(text("7"), text("sharpen"), {"very"});
    basket.addTask(text("3"), text("resize"), {"False", "50"});
    basket.addPicture(text("a.jpg"), 40, 20);
    EXPECT_TRUE(basket.run());
    EXPECT_EQ(basket.states(), "written");
    for (const char* part : {"13 - ", "a.jpg: ", "task 2 (sharpen): "})
        EXPECT_TRUE(basket.reasons().first().contains(text(part))) << basket.reasons().first().toStdString();
    EXPECT_EQ(loaded(basket.path(text("out/a.jpg"))).Width(), 20);
    EXPECT_EQ(basket.desktop.reports.at(0).ErrRoutine, text("subProcessPages"));
    basket.slice.dryRun = true;
    EXPECT_TRUE(basket.run());
    EXPECT_TRUE(basket.reasons().first().contains(text("task 2"))) << "a dry run tells it too";
}
