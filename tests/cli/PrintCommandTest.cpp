// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "tests/cli/Program.h"
#include "tests/support/Text.h"

#include <QFile>
#include <QJsonObject>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

TEST(PrintCommand, PrintsTheRowsThatCanBeReadAndSaysWhichCannot) {
    const PictureFolder folder;
    writeFileSafely(folder.path("b.jpg"), QByteArray("\xFF\xD8\xFF\xE0 damaged"));
    const ProgramRun run =
        folder.run("print --pdf out.pdf --json --captions name --per-page 2 a.jpg b.jpg c.jpg");
    EXPECT_EQ(run.status, 1) << run.messages.constData();
    QStringList states;
    for (const QJsonObject& row : run.objects())
        states << row.value(text("state")).toString();
    states.sort();
    EXPECT_EQ(states.join(u' '), text("failed written written"));
    EXPECT_TRUE(readWholeFile(folder.path("out.pdf")).startsWith("%PDF"));

    EXPECT_EQ(folder.run("print --pdf full.pdf --tasks gone.tbf a.jpg").status, 1);
    EXPECT_EQ(folder.run("print --pdf none.pdf b.jpg").status, 1);
    EXPECT_EQ(folder.run("print --pdf missing/out.pdf a.jpg").status, 1);
    EXPECT_EQ(folder.files(), "a.jpg b.jpg c.jpg out.pdf");
}

TEST(PrintCommand, WhatHasNoMeaningIsWrongUsage) {
    const PictureFolder folder;
    for (const char* wrong :
         {"a.jpg", "--pdf a.jpg a.jpg", "--pdf o.pdf --paper A44 a.jpg", "--pdf o.pdf --mode zoom a.jpg",
          "--pdf o.pdf --scale 0 a.jpg", "--pdf o.pdf --scale nan a.jpg", "--pdf o.pdf --margin 101 a.jpg",
          "--pdf o.pdf --per-page 65 a.jpg", "--pdf o.pdf --captions all a.jpg"})
        EXPECT_EQ(folder.run(commandLine("print") + commandLine(wrong)).status, 2) << wrong;
    EXPECT_EQ(folder.files(), "a.jpg b.jpg c.jpg");
}

} // namespace
