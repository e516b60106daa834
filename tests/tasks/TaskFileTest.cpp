// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/TaskFile.h"

#include "base/SafeFileWriter.h"
#include "base/TrappedError.h"
#include "tests/support/TestDesktop.h"
#include "tests/tasks/TaskRows.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;
using namespace tarsel::modSaveOpenImageList;

namespace {

QString fixture(const QString& name) {
    return QStringLiteral(TARSEL_TASK_FIXTURES) + QLatin1Char('/') + name;
}

struct Fixture {
    const char* name;
    int rows;      ///< kept
    qint32 number; ///< of the error; 0 for none
};

const Fixture fixtures[] = {
    {"binary-noise.tbf", 0, 62},
    {"blank-line-between-rows.tbf", 1, 13},
    {"contrast.tbf", 1, 0},
    {"empty.tbf", 0, 0},
    {"first-row-short-of-fields.tbf", 1, 62},
    {"key-without-icon.tbf", 1, 5},
    {"kind-empty.tbf", 0, 13},
    {"kind-not-numeric.tbf", 1, 13},
    {"kind-over-16-bits.tbf", 0, 6},
    {"last-row-short-of-fields.tbf", 1, 62},
    {"line-ends-of-unix.tbf", 2, 0},
    {"no-line-end-at-the-end.tbf", 1, 0},
    {"quote-inside-a-field.tbf", 1, 62},
    {"quote-never-closed.tbf", 0, 62},
    {"unknown-kind-99.tbf", 1, 0},
    {"unquoted-fields.tbf", 1, 0},
};

void expectListsInStep(const TaskList& tasks, const std::string& what) {
    EXPECT_EQ(tasks.lvEdit.count(), tasks.count()) << what;
    EXPECT_EQ(tasks.lvEditPreview.count(), tasks.count()) << what;
}

qint32 errorOfReading(const QString& path, TaskList& tasks) {
    try {
        readTaskBasket(path, tasks);
    } catch (const TrappedError& error) {
        EXPECT_TRUE(error.description.contains(path)) << error.description.toStdString();
        return error.number;
    }
    return 0;
}

void fillSample(TaskList& tasks) {
    tasks.append(taskRow(5, {"50", "1", "1", "1"}));
    tasks.append(taskRow(10, {"True", "False", "True", "0", "0", "DejaVu Sans", "14", "False", "False",
                              "False", "-2147483640", "255", "0", "8",
                              "50 % off, \xE2\x82\xAC 20 \xE2\x80\x93 \xE6\x97\xA5\xE6\x9C\xAC", "-3", "9"}));
    tasks.append(taskRow(3, {"False", "12.5", ""}));
}

} // namespace

TEST(TaskFile, ASavedListReadsBackRowByRowAndReplacesTheOldOne) {
    TestDesktop desktop;
    QTemporaryDir folder;
    TaskList saved;
    fillSample(saved);
    ASSERT_TRUE(fncSaveTaskBasket(folder.filePath(QStringLiteral("MyList")), saved));
    TaskList read;
    read.append(taskRow(11, {}));
    ASSERT_TRUE(fncOpenTaskBasket(folder.filePath(QStringLiteral("MyList.tbf")), read));
    ASSERT_EQ(read.count(), saved.count());
    for (int i = 0; i < saved.count(); ++i) {
        EXPECT_EQ(read.row(i), saved.row(i)) << i;
        EXPECT_EQ(read.lvEdit.row(i).text, saved.lvEdit.row(i).text);
        EXPECT_EQ(read.lvEditPreview.row(i).iconKey, saved.row(i).key);
    }
    EXPECT_TRUE(desktop.messages.empty());
}

TEST(TaskFile, ARowIsOneLineOfNineteenQuotedFields) {
    TestDesktop desktop;
    QTemporaryDir folder;
    TaskList tasks;
    tasks.append(taskRow(5, {"50", "1", "1", "1"}));
    const QString path = folder.filePath(QStringLiteral("a.tbf"));
    ASSERT_TRUE(fncSaveTaskBasket(path, tasks));
    EXPECT_EQ(readWholeFile(path), QByteArray("\"5\",\"contrast\",\"50\",\"1\",\"1\",\"1\"") +
                                       QByteArray(",\"\"").repeated(13) + "\r\n");
}

TEST(TaskFile, TheExtensionIsAppendedUnlessItIsThereInAnyCase) {
    TestDesktop desktop;
    QTemporaryDir folder;
    TaskList tasks;
    fillSample(tasks);
    for (const char* name : {"MyList", "MyList.TBF", "My.list", "x.tbf"})
        EXPECT_TRUE(fncSaveTaskBasket(folder.filePath(QString::fromLatin1(name)), tasks));
    QStringList made = QDir(folder.path()).entryList(QDir::Files);
    made.sort();
    EXPECT_EQ(made.join(QLatin1Char(' ')), QStringLiteral("My.list.tbf MyList.TBF MyList.tbf x.tbf"));
}

TEST(TaskFile, DamagedFilesKeepTheRowsInFrontOfTheFaultAndNameTheFile) {
    TestDesktop desktop;
    for (const Fixture& f : fixtures) {
        TaskList tasks;
        tasks.append(taskRow(11, {}));
        const QString path = fixture(QString::fromLatin1(f.name));
        EXPECT_EQ(errorOfReading(path, tasks), f.number) << f.name;
        EXPECT_EQ(tasks.count(), f.rows) << f.name;
        expectListsInStep(tasks, f.name);
    }
    EXPECT_EQ(QDir(QStringLiteral(TARSEL_TASK_FIXTURES)).entryList(QDir::Files).size(),
              qsizetype(std::size(fixtures)));
}

TEST(TaskFile, AnUnknownKindIsKeptWithoutANameAndSkippedAtReplay) {
    TestDesktop desktop;
    TaskList tasks;
    ASSERT_TRUE(fncOpenTaskBasket(fixture(QStringLiteral("unknown-kind-99.tbf")), tasks));
    ASSERT_EQ(tasks.count(), 1);
    EXPECT_EQ(tasks.lvEdit.row(0).text, QString());
    ImageBox box = boxWith(unevenPicture(4, 4));
    EXPECT_TRUE(modProcessTasks::subProcessPages(tasks.lvEdit, tasks.lvEditBatch, box, nullptr, true));
    EXPECT_EQ(box.picture(), unevenPicture(4, 4));
}

TEST(TaskFile, WithGenericIconsAnyKeyIsAccepted) {
    TestDesktop desktop;
    TaskList tasks;
    EXPECT_TRUE(fncOpenTaskBasket(fixture(QStringLiteral("key-without-icon.tbf")), tasks, true));
    EXPECT_EQ(tasks.lvEdit.row(0).iconKey, QStringLiteral("generic"));
    EXPECT_NE(tasks.row(1).key, QStringLiteral("generic"));
}

TEST(TaskFile, AFileThatCannotBeReadTakesTheOldRowsAndSaysSo) {
    TestDesktop desktop;
    TaskList tasks;
    fillSample(tasks);
    EXPECT_FALSE(fncOpenTaskBasket(QStringLiteral("/nowhere/list.tbf"), tasks));
    EXPECT_EQ(tasks.count(), 0);
    ASSERT_EQ(desktop.messages.size(), 1u);
    EXPECT_EQ(desktop.messages[0].text,
              QStringLiteral("Error opening editing list!\nPlease select a valid image list file."));
    EXPECT_EQ(desktop.messages[0].icon, MessageIcon::Information);
    ASSERT_EQ(desktop.reports.size(), 1u);
    EXPECT_EQ(desktop.reports[0].ErrRoutine, QStringLiteral("modSaveOpenImageList.fncOpenTaskBasket"));
    EXPECT_TRUE(desktop.reports[0].ErrSystem.contains(QStringLiteral("/nowhere/list.tbf")));
}

TEST(TaskFile, AFolderThatDoesNotExistCannotBeSavedTo) {
    TestDesktop desktop;
    TaskList tasks;
    fillSample(tasks);
    EXPECT_FALSE(fncSaveTaskBasket(QStringLiteral("/nowhere/list"), tasks));
    ASSERT_EQ(desktop.messages.size(), 1u);
    EXPECT_EQ(desktop.messages[0].text, QStringLiteral("Error saving editing list!\nPlease try again!"));
    ASSERT_EQ(desktop.reports.size(), 1u);
    EXPECT_EQ(desktop.reports[0].ErrRoutine, QStringLiteral("modSaveOpenImageList.fncSaveTaskBasket"));
    EXPECT_TRUE(desktop.reports[0].ErrSystem.contains(QStringLiteral("/nowhere/list.tbf")));
}
