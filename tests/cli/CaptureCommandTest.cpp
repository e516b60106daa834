// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "tests/cli/Program.h"

#include <QStandardPaths>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

class CaptureCommand : public testing::Test, public PictureFolder {
protected:
    /// Several commands in the shell, on one screen of 320 x 200.
    ProgramRun onScreen(const char* commands) const {
        const QByteArray line =
            QByteArray(TARSEL_ROOT "/tests/support/on-screen 320x200x24 sh -c '") + commands + "'";
        return runShell(line.constData(), path());
    }
};

} // namespace

TEST_F(CaptureCommand, RefusesAnOlderFileBeforeItLooksForAScreen) {
    const QByteArray old = readWholeFile(path("a.jpg"));
    ASSERT_TRUE(QFile::link(path("elsewhere.png"), path("link.png")));
    for (const char* name : {"a.jpg", "link.png"}) {
        const ProgramRun kept = run({QStringLiteral("capture"), QStringLiteral("--out"), path(name)});
        EXPECT_EQ(kept.status, 1);
        EXPECT_TRUE(kept.messages.contains("exists; --overwrite")) << kept.messages.constData();
    }
    const ProgramRun noScreen = run("capture --overwrite --out a.jpg");
    EXPECT_EQ(noScreen.status, 1);
    EXPECT_TRUE(noScreen.messages.contains("DISPLAY")) << noScreen.messages.constData();
    EXPECT_EQ(readWholeFile(path("a.jpg")), old);
    EXPECT_EQ(files(), "a.jpg b.jpg c.jpg") << "nothing where the link leads";
    const ProgramRun noList = runShell("WAYLAND_DISPLAY=none \"$TARSEL\" capture --list", path());
    EXPECT_EQ(noList.status, 1) << "no list is not an empty one";
    for (const char* wrong : {"--kind window", "--region 1,2,0,4"})
        EXPECT_EQ(run(("capture --out new.png --delay 3600 " + std::string(wrong)).c_str()).status, 2);
}

TEST_F(CaptureCommand, TakesTheScreenAndReplacesWhatItIsToldTo) {
    if (QStandardPaths::findExecutable(QStringLiteral("Xvfb")).isEmpty())
        GTEST_SKIP() << "needs Xvfb";
    const ProgramRun done = onScreen("\"$TARSEL\" capture --out new.png --json && "
                                     "\"$TARSEL\" capture --out a.jpg --region 10,20,30,40 --overwrite && "
                                     "\"$TARSEL\" capture --out new.png --overwrite --region 0,0,7,5 && "
                                     "\"$TARSEL\" capture --out new.png");
    EXPECT_EQ(done.status, 1) << "of the last one";
    EXPECT_TRUE(done.messages.contains("new.png exists")) << done.messages.constData();
    ASSERT_FALSE(done.lines().isEmpty());
    EXPECT_EQ(done.objects()[0].value(QStringLiteral("width")), 320);
    EXPECT_EQ(loaded("a.jpg").Height(), 40);
    EXPECT_EQ(loaded("new.png").Width(), 7);
}

TEST_F(CaptureCommand, EndsItsDelayAtASignalOrForAMonitorThatIsNotThere) {
    if (QStandardPaths::findExecutable(QStringLiteral("Xvfb")).isEmpty())
        GTEST_SKIP() << "needs Xvfb";
    const ProgramRun stopped =
        onScreen("\"$TARSEL\" capture --out new.png --delay 3600 --monitor no; echo $?; "
                 "\"$TARSEL\" capture --out new.png --kind desktop --delay 3600 & "
                 "sleep 5; kill $!; wait $!; echo $?");
    EXPECT_EQ(stopped.lines().join(u' ').toStdString(), "2 130");
    EXPECT_EQ(files(), "a.jpg b.jpg c.jpg");
}
