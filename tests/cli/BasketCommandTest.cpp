// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "tests/cli/Program.h"
#include "tests/support/Text.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

QByteArray lineOf(const PictureFolder& folder, const char* name, const char* description = nullptr) {
    QByteArray line = '"' + folder.path(text(name)).toUtf8() + '"';
    if (description)
        line += QByteArray(",\"") + description + '"';
    return line + "\r\n";
}

QByteArray basketOf(const PictureFolder& folder, const char* name) {
    return readWholeFile(folder.path(text(name)));
}

} // namespace

TEST(BasketCommand, SavesFullPathsOnceAndReportsMissingOnes) {
    const PictureFolder folder;
    EXPECT_EQ(folder.run(commandLine("basket save x.ibf a.jpg b.jpg ./a.jpg")).status, 0);
    EXPECT_EQ(basketOf(folder, "x.ibf"), lineOf(folder, "a.jpg") + lineOf(folder, "b.jpg"));
    const ProgramRun run = folder.run(commandLine("basket save x.ibf gone.jpg c.jpg"));
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(contains(run.messages, "gone.jpg"));
    EXPECT_EQ(basketOf(folder, "x.ibf"), lineOf(folder, "c.jpg"));
}

TEST(BasketCommand, AddingKeepsEntriesDescriptionsAndMissingFiles) {
    const PictureFolder folder;
    EXPECT_EQ(folder.run(commandLine("basket save x.ibd --description old a.jpg b.jpg")).status, 0);
    ASSERT_TRUE(QFile::remove(folder.path(text("a.jpg"))));
    const QStringList quoted{text("--description"),
                             text("the \"new\" mill")}; // without the quotes in the file
    EXPECT_EQ(folder.run(commandLine("basket add x.ibd c.jpg b.jpg") + quoted).status, 0);
    EXPECT_EQ(basketOf(folder, "x.ibd"), lineOf(folder, "a.jpg", "old") + lineOf(folder, "b.jpg", "old") +
                                             lineOf(folder, "c.jpg", "the new mill"));
}

TEST(BasketCommand, AFailureLeavesTheOldBasket) {
    const PictureFolder folder;
    writeFileSafely(folder.path(text("odd.ibf")), "\"/x/a.jpg\"\r\n\r\n");
    EXPECT_EQ(folder.run(commandLine("basket add odd.ibf a.jpg")).status, 1);
    EXPECT_EQ(basketOf(folder, "odd.ibf"), QByteArray("\"/x/a.jpg\"\r\n\r\n"));
    EXPECT_EQ(folder.run(commandLine("basket save odd.ibf gone.jpg")).status, 1);
    EXPECT_EQ(basketOf(folder, "odd.ibf"), QByteArray("\"/x/a.jpg\"\r\n\r\n"));
    EXPECT_EQ(folder.run(commandLine("basket add gone.ibf a.jpg")).status, 1);
}

TEST(BasketCommand, AFileThatCannotBeWrittenIsReportedOnceWithItsReason) {
    const PictureFolder folder;
    ASSERT_TRUE(QDir(folder.path()).mkdir(text("folder.ibf")));
    for (const char* action : {"save", "add"}) {
        const ProgramRun run = folder.run({text("basket"), text(action), text("folder.ibf"), text("a.jpg")});
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.messages.count('\n'), 1) << run.messages.toStdString();
        EXPECT_TRUE(contains(run.messages, "folder.ibf: Is a directory"));
    }
}

TEST(BasketCommand, ListsRowsWithTheirFacts) {
    const PictureFolder folder;
    ASSERT_EQ(folder.run(commandLine("basket save x.ibd --description nice a.jpg b.jpg")).status, 0);
    const ProgramRun run = folder.run(commandLine("basket list x.ibd --json"));
    EXPECT_EQ(run.status, 0);
    ASSERT_EQ(run.objects().size(), 2);
    const QJsonObject row = run.objects().at(1);
    EXPECT_EQ(row.value(text("row")).toInt(), 2);
    EXPECT_EQ(row.value(text("name")).toString(), text("b.jpg"));
    EXPECT_EQ(row.value(text("source")).toString(), folder.path(text("b.jpg")));
    EXPECT_EQ(row.value(text("resolution")).toString(), text("26 X 16"));
    EXPECT_EQ(row.value(text("description")).toString(), text("nice"));
    ASSERT_TRUE(QFile::remove(folder.path(text("a.jpg"))));
    const ProgramRun less = folder.run(commandLine("basket list x.ibd"));
    EXPECT_EQ(less.status, 1);
    EXPECT_EQ(less.lines().size(), 1);
    EXPECT_TRUE(less.messages.contains("a.jpg"));
}
