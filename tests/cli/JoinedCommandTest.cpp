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

class JoinedCommands : public testing::Test, public PictureFolder {
protected:
    JoinedCommands() {
        QDir().mkpath(path("players/windows"));
        for (const char* player : {"slide", "saver", "clock", "raining-text"})
            writeFileSafely(path("players/windows/") + text(player) + text(".exe"), "PLAYER");
    }
    /// With players that only this folder has.
    ProgramRun run(const char* words) const {
        const QByteArray line = QByteArray("TARSEL_PLAYERS=\"$PWD/players\" \"$TARSEL\" ") + words;
        return runShell(line.constData(), path());
    }
};

} // namespace

TEST_F(JoinedCommands, ASlideShowIsMadeListedAndTakenApart) {
    QDir().mkpath(path("show")); // not what the file will be called
    const ProgramRun made = run("slide --system windows --json --out show --interval 5 --background FF8000 "
                                "a.jpg missing.jpg b.jpg");
    EXPECT_EQ(made.status, 1) << made.messages.constData();
    ASSERT_EQ(made.objects().size(), 3);
    EXPECT_EQ(made.objects()[2].value(text("target")), path("show.exe"));
    EXPECT_EQ(made.objects()[2].value(text("state")), text("written"));
    EXPECT_TRUE(readWholeFile(path("show.exe")).startsWith(QByteArray("PLAYER\0\xFF\xD8", 9)));

    const ProgramRun listed = run("joined list --json show.exe");
    ASSERT_EQ(listed.objects().size(), 3) << listed.messages.constData();
    EXPECT_EQ(listed.objects()[1].value(text("name")), text("b"));
    EXPECT_EQ(listed.lines()[2].toStdString(), R"({"options":{"interval":"5","background":"FF8000"}})");
    EXPECT_EQ(run("joined extract --out new/parts show.exe").status, 0);
    EXPECT_EQ(files("new/parts"), "a.jpg b.jpg");
    EXPECT_EQ(loaded("new/parts/b.jpg").Width(), 26);
    writeFileSafely(path("new/parts/a.jpg"), "MINE");
    EXPECT_EQ(run("joined extract --out new/parts show.exe").status, 1);
    EXPECT_EQ(readWholeFile(path("new/parts/a.jpg")), "MINE");
    EXPECT_TRUE(contains(run("joined list a.jpg").messages, "no pictures are joined"));
}

TEST_F(JoinedCommands, AGreetingHasItsOptionsAndRefusesThoseOfOtherStyles) {
    ASSERT_EQ(
        run("greeting --system windows --style clock --clock digital --no-date --hour-color 010203 --out "
            "g.exe a.jpg")
            .status,
        0);
    const QString clock = QString::fromUtf8(run("joined list g.exe").output);
    for (const char* line :
         {"Single", "clock: digital", "date: no", "hour-color: 010203", "minute-color: 008000"})
        EXPECT_TRUE(contains(clock, line));
    ASSERT_EQ(run("greeting --system windows --style raining-text --text Hi --out g a.jpg").status, 0);
    EXPECT_TRUE(contains(run("joined list g.exe").output, "text: Hi"));
    for (const char* words :
         {"greeting --style simple --text x --out g a.jpg", "greeting --out g a.jpg",
          "greeting --style simple --out g a.jpg b.jpg", "saver a.jpg", "saver --out s --interval 0 a.jpg",
          "saver --out . a.jpg", "joined extract g.exe"})
        EXPECT_EQ(run(words).status, 2) << words;
    const ProgramRun noPlayer = run("saver --json --out s a.jpg");
    EXPECT_TRUE(noPlayer.status == 1 && noPlayer.objects().size() == 1);
    EXPECT_TRUE(contains(noPlayer.messages, "linux/saver"));
    EXPECT_FALSE(contains(noPlayer.messages, "\\x0a"));
    EXPECT_EQ(files(), "a.jpg b.jpg c.jpg g.exe");
}
