// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "tests/cli/Program.h"
#include "tests/support/Text.h"

#include <QDir>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

/// A folder, and the scanners of the service's test driver alone.
class ScanCommand : public testing::Test, public PictureFolder {
protected:
    ScanCommand() {
        QDir().mkpath(path("sane"));
        QDir().mkpath(path("pages"));
        writeFileSafely(path("sane/dll.conf"), "test\n");
    }
    /// Runs lines of the shell with the driver that does what no other does.
    ProgramRun runStubborn(const char* lines) const {
        const QByteArray all = QByteArray("export SANE_CONFIG_DIR=\"$PWD/sane\"; export LD_LIBRARY_PATH='") +
                               TARSEL_TEST_DRIVERS "'; " + lines;
        return runShell(all.constData(), path());
    }
    ProgramRun scan(const char* words) const {
        const QByteArray line =
            QByteArray("SANE_CONFIG_DIR=\"$PWD/sane\" \"$TARSEL\" scan --resolution 20 ") + words;
        return runShell(line.constData(), path());
    }
};

} // namespace

TEST_F(ScanCommand, ListsScannersAndTheirOptions) {
    const ProgramRun listed = scan("--list --json");
    ASSERT_FALSE(listed.objects().isEmpty()) << listed.messages.constData();
    EXPECT_EQ(listed.objects()[0].value(text("device")), text("test:0"));
    const ProgramRun options = scan("--options --mode color --json");
    ASSERT_FALSE(options.objects().isEmpty());
    EXPECT_EQ(options.objects()[0].value(text("option")), text("mode"));
    EXPECT_EQ(options.objects()[0].value(text("value")), text("Color"));

    writeFileSafely(path("sane/dll.conf"), "");
    const ProgramRun none = scan("--list");
    EXPECT_EQ(none.status, 1);
    EXPECT_TRUE(none.messages.contains("No scanner was found"));
}

TEST_F(ScanCommand, SavesAPageADocumentOrNumberedPages) {
    const ProgramRun one = scan("--device test:0 --out pages/one.png --area 10,10,50.3,25 --json");
    ASSERT_EQ(one.status, 0) << one.messages.constData();
    EXPECT_EQ(one.objects()[0].value(text("width")), 39);
    EXPECT_TRUE(one.messages.contains("br-x is 60 instead of 60.3")) << one.messages.constData();
    EXPECT_EQ(loaded("pages/one.png").Height(), 19);

    EXPECT_EQ(scan("--device test:0 --source 'automatic document feeder' --multi --out pages/all.tif").status,
              0);
    EXPECT_EQ(ImageBox::PageCount(path("pages/all.tif")), 10);
    EXPECT_EQ(scan("--device test:0 --source 'Automatic Document Feeder' --out pages/p.bmp --pages 2").status,
              0);
    EXPECT_EQ(scan("--device test:0 --out pages --format gif").status, 0);
    EXPECT_EQ(scan("--device test:0 --out pages/flat.jpg --pages 2").status, 0) << "without a terminal";
    EXPECT_EQ(files("pages"), "Scan1.gif all.tif flat1.jpg flat2.jpg one.png p1.bmp p2.bmp");
}

TEST_F(ScanCommand, ReplacesNothingThatItIsNotToldTo) {
    const QByteArray old("an older file");
    for (const char* name : {"pages/a.tif", "pages/p7.tif"})
        writeFileSafely(path(name), old);
    for (const char* words :
         {"--out pages/a.tif", "--out pages/a.tif --multi", "--out pages/p.tif --pages 2"}) {
        const ProgramRun run = scan((QByteArray("--device test:0 ") + words).constData());
        EXPECT_EQ(run.status, 1) << words;
        EXPECT_TRUE(run.messages.contains("--overwrite")) << run.messages.constData();
    }
    // The driver fails before the first page.
    const ProgramRun jammed =
        runStubborn("\"$TARSEL\" scan --device \"stubborn:fails 6\" --out pages/a.tif --multi --overwrite");
    EXPECT_EQ(jammed.status, 1);
    EXPECT_TRUE(jammed.messages.contains("paper jam")) << jammed.messages.constData();
    EXPECT_EQ(readWholeFile(path("pages/a.tif")), old);
    EXPECT_EQ(files("pages"), "a.tif p7.tif");
    EXPECT_EQ(scan("--device test:0 --out pages/a.tif --multi --overwrite").status, 0);
    EXPECT_EQ(loaded("pages/a.tif").Width(), 62);
}

TEST_F(ScanCommand, RefusesWhatItCantDoBeforeItScans) {
    for (const char* words :
         {"", "--out", "--out pages/a.xyz", "--out pages --format warp", "--out pages/a.tif --format png",
          "--out pages/a.png --multi", "--device test:0 --out pages/a.tif --mode Sepia",
          "--device test:0 --out pages/a.tif --area 0,0,0,10",
          "--device test:0 --out pages/a.tif --area 0,0,300,10",
          "--device test:0 --out pages/a.tif --set warp=9", "--device test:0 --out pages/a.tif --pages 0"})
        EXPECT_EQ(scan(words).status, 2) << words;
    EXPECT_EQ(scan("--device test:0 --out nowhere/a.tif").status, 1);
    EXPECT_EQ(scan("--device nonsense --out pages/a.tif").status, 1);
    EXPECT_EQ(files("pages"), "");
}

TEST_F(ScanCommand, FailsWhereThePageIsCancelledAtTheDevice) {
    const ProgramRun run = runStubborn("\"$TARSEL\" scan --device \"stubborn:fails 2\" --out pages/a.tif");
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.messages.contains("stubborn:fails 2: scanning was cancelled."))
        << run.messages.constData();
    EXPECT_EQ(files("pages"), "");
}

TEST_F(ScanCommand, KeepsThePagesBeforeAnInterrupt) {
    const ProgramRun run = runShell(
        "SANE_CONFIG_DIR=\"$PWD/sane\" \"$TARSEL\" scan --device test:0 --resolution 200 --multi --out "
        "pages/a.tif "
        "--source 'Automatic Document Feeder' --set read-delay=yes --set read-delay-duration=50000 > log & "
        "n=0; until grep -q 'page 2' log; do n=$((n + 1)); [ $n -lt 1000 ] || exit 9; sleep 0.02; done; "
        "kill -INT $!; wait $!",
        path());
    EXPECT_EQ(run.status, 130) << run.messages.constData();
    const int pages = ImageBox::PageCount(path("pages/a.tif"));
    EXPECT_GE(pages, 2);
    EXPECT_LT(pages, 10);
    EXPECT_EQ(files("pages"), "a.tif");
}

TEST_F(ScanCommand, TellsOfAPageThatEndedEarly) {
    const ProgramRun run = runStubborn("\"$TARSEL\" scan --device stubborn:short --out pages/a.tif && "
                                       "\"$TARSEL\" scan --device stubborn:short --out pages/b.tif --json");
    EXPECT_EQ(run.status, 0) << run.messages.constData();
    EXPECT_TRUE(run.messages.contains("page 1 ended early")) << run.messages.constData();
    EXPECT_EQ(loaded("pages/a.tif").Height(), 6);
    ASSERT_FALSE(run.objects().isEmpty());
    EXPECT_TRUE(run.objects().last().value(text("reason")).toString().contains(text("fewer lines")));
}

/// The driver is given ten seconds to bring its carriage home.
TEST_F(ScanCommand, LeavesNoProcessBehindWhenItIsKilledWhileTheDriverHangs) {
    const ProgramRun run = runStubborn(
        "wait_for() { n=0; until \"$@\"; do n=$((n + 1)); [ $n -lt 1000 ] || return 1; sleep 0.02; done; }; "
        "gone() { ! grep -q '^State:.[^Z]' /proc/$driver/status 2>/dev/null; }; "
        "\"$TARSEL\" scan --device stubborn:deaf --out pages/a.tif > log & "
        "wait_for test -s sane/reading || exit 9; driver=$(cat sane/reading); "
        "kill -KILL $!; wait_for gone || { kill -KILL $driver; exit 8; }");
    EXPECT_EQ(run.status, 0) << run.messages.constData();
    EXPECT_EQ(files("pages"), "");
}
