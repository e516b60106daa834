// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/TaskFile.h"

#include "base/SafeFileWriter.h"
#include "base/TrappedError.h"
#include "tasks/TaskBasketActions.h"
#include "tests/support/TestDesktop.h"
#include "tests/support/Text.h"
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

qint32 errorOfReading(const QString& path, TaskList& tasks) {
    try {
        readTaskBasket(path, tasks);
    } catch (const TrappedError& error) {
        EXPECT_TRUE(contains(error.description, path));
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
        EXPECT_EQ(read.lvEditPreview.row(i).iconKey, saved.row(i).key);
    }
    EXPECT_TRUE(desktop.messages.empty());
}

TEST(TaskFile, ARowIsOneLineOfNineteenQuotedFieldsInAFileWithTheExtension) {
    TestDesktop desktop;
    QTemporaryDir folder;
    TaskList tasks;
    tasks.append(taskRow(5, {"50", "1", "1", "1"}));
    for (const char* name : {"MyList", "MyList.TBF", "My.list", "x.tbf"})
        EXPECT_TRUE(fncSaveTaskBasket(folder.filePath(text(name)), tasks));
    const QStringList made = QDir(folder.path()).entryList(QDir::Files, QDir::Name);
    EXPECT_EQ(made.join(QLatin1Char(' ')), QStringLiteral("My.list.tbf MyList.TBF MyList.tbf x.tbf"));
    for (const QString& name : made)
        EXPECT_EQ(readWholeFile(folder.filePath(name)),
                  QByteArray("\"5\",\"contrast\",\"50\",\"1\",\"1\",\"1\"") +
                      QByteArray(",\"\"").repeated(13) + "\r\n");
}

TEST(TaskFile, DamagedFilesKeepTheRowsInFrontOfTheFaultAndNameTheFile) {
    TestDesktop desktop;
    for (const Fixture& f : fixtures) {
        TaskList tasks;
        tasks.append(taskRow(11, {}));
        const QString path = fixture(QString::fromLatin1(f.name));
        SCOPED_TRACE(f.name);
        EXPECT_EQ(errorOfReading(path, tasks), f.number);
        EXPECT_EQ(tasks.count(), f.rows);
    }
    EXPECT_EQ(QDir(QStringLiteral(TARSEL_TASK_FIXTURES)).entryList(QDir::Files).size(),
              qsizetype(std::size(fixtures)));
}

TEST(TaskFile, WithGenericIconsAnyKeyIsAccepted) {
    TestDesktop desktop;
    TaskList tasks;
    EXPECT_TRUE(fncOpenTaskBasket(fixture(QStringLiteral("key-without-icon.tbf")), tasks, true));
    EXPECT_EQ(tasks.lvEdit.row(0).iconKey, QStringLiteral("generic"));
    EXPECT_NE(tasks.row(1).key, QStringLiteral("generic"));
}

TEST(TaskFile, ADoubleQuoteThatTheFormatCannotKeepIsToldAndTheListStaysUnsaved) {
    TestDesktop desktop;
    const QTemporaryDir folder;
    TaskList tasks;
    fillSample(tasks);
    tasks.append(taskRow(9, {QStringLiteral("say \"hi\"")}));
    EXPECT_TRUE(fncSaveTaskBasket(folder.filePath(QStringLiteral("a")), tasks));
    EXPECT_TRUE(tasks.isUnsaved());
    ASSERT_EQ(desktop.messages.size(), 1u);
    EXPECT_TRUE(desktop.messages[0].text.startsWith(QLatin1String("Task 4 has a double quote")));
    tasks.remove(3);
    EXPECT_TRUE(fncSaveTaskBasket(folder.filePath(QStringLiteral("a")), tasks));
    EXPECT_TRUE(desktop.messages.size() == 1 && !tasks.isUnsaved());
}

TEST(TaskFile, AFileThatCannotBeReadOrWrittenIsReportedWithItsName) {
    TestDesktop desktop;
    TaskList tasks;
    fillSample(tasks);
    EXPECT_FALSE(fncSaveTaskBasket(QStringLiteral("/nowhere/list"), tasks));
    EXPECT_EQ(tasks.count(), 3);
    desktop.fileChoices.push_back(FileDialogChoice{QStringLiteral("/nowhere/list.tbf")});
    EXPECT_TRUE(taskBasketActions::cmdEditBar(1, tasks, true)) << "the picture follows";
    EXPECT_EQ(tasks.count(), 0) << "the old rows are gone";
    ASSERT_EQ(desktop.messages.size(), 2u);
    EXPECT_EQ(desktop.messages[0].text, QStringLiteral("Error saving editing list!\nPlease try again!"));
    EXPECT_EQ(desktop.messages[1].text,
              QStringLiteral("Error opening editing list!\nPlease select a valid image list file."));
    EXPECT_EQ(desktop.messages[1].icon, MessageIcon::Information);
    ASSERT_EQ(desktop.reports.size(), 2u);
    EXPECT_EQ(desktop.reports[0].ErrRoutine, QStringLiteral("modSaveOpenImageList.fncSaveTaskBasket"));
    EXPECT_EQ(desktop.reports[1].ErrRoutine, QStringLiteral("modSaveOpenImageList.fncOpenTaskBasket"));
    for (const ErrorReport& report : desktop.reports)
        EXPECT_TRUE(contains(report.ErrSystem, "/nowhere/list.tbf"));
}
