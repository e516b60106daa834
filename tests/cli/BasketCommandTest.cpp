// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "tests/cli/Program.h"
#include "tests/support/MadePictures.h"
#include "tests/support/Text.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

QByteArray lineOf(const PictureFolder& folder, const char* name, const char* description = nullptr) {
    QByteArray line = '"' + folder.path(name).toUtf8() + '"';
    if (description)
        line += QByteArray(",\"") + description + '"';
    return line + "\r\n";
}

QByteArray basketOf(const PictureFolder& folder, const char* name) {
    return readWholeFile(folder.path(name));
}

} // namespace

TEST(BasketCommand, SavesFullPathsOnceAndReportsMissingOnes) {
    const PictureFolder folder;
    EXPECT_EQ(folder.run("basket save x.ibf a.jpg b.jpg ./a.jpg").status, 0);
    EXPECT_EQ(basketOf(folder, "x.ibf"), lineOf(folder, "a.jpg") + lineOf(folder, "b.jpg"));
    const ProgramRun run = folder.run("basket save x.ibf gone.jpg c.jpg");
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(contains(run.messages, "gone.jpg"));
    EXPECT_EQ(basketOf(folder, "x.ibf"), lineOf(folder, "c.jpg"));
}

TEST(BasketCommand, AddingKeepsEntriesDescriptionsAndMissingFiles) {
    const PictureFolder folder;
    EXPECT_EQ(folder.run("basket save x.ibd --description old a.jpg b.jpg").status, 0);
    ASSERT_TRUE(QFile::remove(folder.path("a.jpg")));
    const QStringList quoted{text("--description"),
                             text("the \"new\" mill")}; // without the quotes in the file
    EXPECT_EQ(folder.run(commandLine("basket add x.ibd c.jpg b.jpg") + quoted).status, 0);
    EXPECT_EQ(basketOf(folder, "x.ibd"), lineOf(folder, "a.jpg", "old") + lineOf(folder, "b.jpg", "old") +
                                             lineOf(folder, "c.jpg", "the new mill"));
}

TEST(BasketCommand, WhatSeveralProcessesAddAtOnceAllArrives) {
    const PictureFolder folder;
    constexpr int count = 12;
    for (int i = 0; i < count; ++i)
        QFile::copy(folder.path("a.jpg"), folder.path() + QStringLiteral("/p%1.jpg").arg(i));
    EXPECT_EQ(folder.run("basket save x.ibf a.jpg").status, 0);
    std::vector<pid_t> running;
    for (int i = 0; i < count; ++i)
        running.push_back(startProgram({text("basket"), text("add"), text("x.ibf"), text("p%1.jpg").arg(i)},
                                       folder.path()));
    for (const pid_t each : running)
        EXPECT_EQ(endOf(each), 0);
    EXPECT_EQ(basketOf(folder, "x.ibf").count('\n'), count + 1);
}

TEST(BasketCommand, AFailureIsReportedOnceWithItsReasonAndLeavesTheOldBasket) {
    const PictureFolder folder;
    const QByteArray odd = "\"/x/a.jpg\"\r\n\r\n";
    writeFileSafely(folder.path("odd.ibf"), odd);
    ASSERT_TRUE(QDir(folder.path()).mkdir(text("folder.ibf")));
    const std::pair<const char*, const char*> cases[] = {{"add odd.ibf a.jpg", "odd.ibf"},
                                                         {"save odd.ibf gone.jpg", "empty basket"},
                                                         {"add gone.ibf a.jpg", "gone.ibf"},
                                                         {"save folder.ibf a.jpg", "Is a directory"},
                                                         {"add folder.ibf a.jpg", "Is a directory"}};
    for (const auto& [words, part] : cases) {
        const ProgramRun run = folder.run(commandLine("basket") + commandLine(words));
        EXPECT_EQ(run.status, 1) << words;
        EXPECT_EQ(run.messages.count(part), 1) << run.messages.toStdString();
    }
    for (const char* words : {"save odd.ibf a.jpg odd.ibf", "add odd.ibf x.ibd"})
        EXPECT_EQ(folder.run(commandLine("basket") + commandLine(words)).status, 2) << words;
    EXPECT_EQ(basketOf(folder, "odd.ibf"), odd);
}

TEST(BasketCommand, ListsRowsWithTheirFacts) {
    const PictureFolder folder;
    ASSERT_EQ(folder.run("basket save x.ibd --description nice a.jpg b.jpg").status, 0);
    const ProgramRun run = folder.run("basket list x.ibd --json");
    EXPECT_EQ(run.status, 0);
    ASSERT_EQ(run.objects().size(), 2);
    const QJsonObject row = run.objects().at(1);
    const std::pair<const char*, QJsonValue> members[] = {{"row", 2},
                                                          {"name", text("b.jpg")},
                                                          {"source", folder.path("b.jpg")},
                                                          {"resolution", text("26 X 16")},
                                                          {"description", text("nice")}};
    for (const auto& [key, value] : members)
        EXPECT_EQ(row.value(text(key)), value) << key;
    makeDocument(folder.path("scan.tif"), {{QSize(4, 3)}, {QSize(5, 3)}});
    ASSERT_EQ(folder.run("basket save pages.ibf scan.tif").status, 0);
    for (const QJsonObject& page : folder.run("basket list pages.ibf --json").objects())
        EXPECT_EQ(page.value(text("path")), folder.path("scan.tif")) << "nothing that goes with the run";
    ASSERT_TRUE(QFile::remove(folder.path("a.jpg")));
    const ProgramRun less = folder.run("basket list x.ibd");
    EXPECT_EQ(less.status, 1);
    EXPECT_EQ(less.lines().size(), 1);
    EXPECT_TRUE(less.messages.contains("a.jpg"));
}
