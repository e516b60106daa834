// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "tests/cli/Program.h"
#include "tests/support/MadePictures.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QMap>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

constexpr int rowCount = 11;

/// A basket of pictures and a document of pages, and what one run makes of it.
class Slices : public testing::Test {
protected:
    Slices() {
        writeFileSafely(folder.filePath(QStringLiteral("rotate.tbf")),
                        "\"2\",\"rotate\",\"True\",\"7\",\"16777215\"" + QByteArray(",\"\"").repeated(14) +
                            "\r\n");
        makeDocument(folder.filePath(QStringLiteral("scan.tif")), {{QSize(40, 30)}, {QSize(30, 40)}});
        QStringList pictures{QStringLiteral("scan.tif")};
        for (int i = 2; i < rowCount; ++i) {
            pictures << QStringLiteral("p%1.jpg").arg(i, 2, 10, QLatin1Char('0'));
            makePicture(folder.filePath(pictures.last()), 60 + i, 40, QStringLiteral("Ann"));
        }
        EXPECT_EQ(runProgram(commandLine("basket save all.ibf") + pictures, folder.path()).status, 0);
        EXPECT_EQ(runShell(("$TARSEL " + options("one")).constData(), folder.path()).status, 0);
        EXPECT_EQ(contents("one").size(), rowCount);
    }
    /// Of the command that the slices share.
    static QByteArray options(const char* out) {
        return QByteArray("batch --tasks rotate.tbf --out ") + out + " --name generic all.ibf";
    }
    QMap<QString, QByteArray> contents(const char* out) const {
        QMap<QString, QByteArray> all;
        const QDir made(folder.filePath(QLatin1String(out)));
        for (const QString& name : made.entryList(QDir::Files | QDir::Hidden))
            all[name] = readWholeFile(made.filePath(name));
        return all;
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(Slices, DoneByGnuParallelAreTheFullRunByteForByte) {
    if (!QFileInfo::exists(QStringLiteral("/usr/bin/parallel")))
        GTEST_SKIP() << "parallel is not installed";
    const QByteArray line = "export HOME=$PWD; seq 1 4 11 | parallel --will-cite -j3 \"$TARSEL\" " +
                            options("many") + " --rows '{}-{= $_ += 3 =}'";
    const ProgramRun run = runShell(line.constData(), folder.path());
    EXPECT_EQ(run.status, 0) << run.messages.constData();
    EXPECT_EQ(run.output.count(" written "), rowCount) << "no row twice";
    EXPECT_TRUE(contents("many") == contents("one"));
}

TEST_F(Slices, OfASlurmArrayAreTheFullRunByteForByte) {
    const QByteArray line = "for i in 1 2 3 4; do SLURM_ARRAY_TASK_ID=$i " TARSEL_ROOT
                            "/docs/many-machines/slice 4 " +
                            options("many").mid(6) + " || exit 1; done";
    const ProgramRun run = runShell(line.constData(), folder.path());
    EXPECT_EQ(run.status, 0) << run.messages.constData();
    EXPECT_EQ(run.output.count(" written "), rowCount) << "no row twice";
    EXPECT_TRUE(contents("many") == contents("one"));
    EXPECT_NE(runShell(TARSEL_ROOT "/docs/many-machines/slice 4 --out many all.ibf", folder.path()).status, 0)
        << "by itself it would do what somebody else does";
    for (const char* replacing : {"--source-folder", "--out .", "--out=."})
        EXPECT_EQ(runShell((QByteArray("SLURM_ARRAY_TASK_ID=1 " TARSEL_ROOT "/docs/many-machines/slice 4 ") +
                            replacing + " all.ibf")
                               .constData(),
                           folder.path())
                      .status,
                  2)
            << replacing << ": started again it would change sources twice";
}

TEST(SlicesOfRowsWithOneName, EndInTheFileOfOneRunInWhateverOrderAndSaySo) {
    const PictureFolder folder;
    for (const char* card : {"x", "y"}) {
        QDir(folder.path()).mkdir(QLatin1String(card));
        makePicture(folder.path(card) + QStringLiteral("/p.jpg"), 30 + *card, 20);
    }
    const auto made = [&](const char* words, const QStringList& options = {}) {
        return folder.run(commandLine("batch x/p.jpg y/p.jpg a.jpg") + commandLine(words) + options).status;
    };
    EXPECT_EQ(made("--out one"), 1);
    const QByteArray last = readWholeFile(folder.path("one/p.jpg"));
    for (const bool isBackwards : {false, true}) {
        const QByteArray out = isBackwards ? " --out back" : " --out many";
        for (const int slice : {isBackwards, !isBackwards})
            EXPECT_EQ(made((slice == 0 ? "--rows 1-1" : "--rows 2-3") + out), 1) << out.constData();
        EXPECT_TRUE(readWholeFile(folder.path(out.mid(7).constData()) + QStringLiteral("/p.jpg")) == last);
    }
    EXPECT_EQ(made("--out back --rows 3-3"), 0) << "nothing else has that name";
    EXPECT_EQ(made("--out new --rows 1-1 --dry-run"), 1);

    for (const char* part : {"--out named --prefix", "--out suffixed --suffix"}) {
        const QStringList byPicture = commandLine("--name hybrid") + commandLine(part)
                                      << QStringLiteral("[EXIF Artist]");
        EXPECT_EQ(made("--rows 1-1", byPicture), 0) << part;
        EXPECT_EQ(made("--rows 2-3", byPicture), 1) << part << ": another row made a file of that name";
    }

    for (const char* twin : {"x/q.jpeg", "x/q.jpe"})
        QFile::copy(folder.path("a.jpg"), folder.path(twin));
    QFile::link(folder.path("x"), folder.path("link"));
    EXPECT_EQ(folder.run("batch --source-folder --rows 1-1 x/q.jpeg link/q.jpe").status, 1) << "one folder";

    writeFileSafely(folder.path("y/p.jpg"), "no picture");
    for (const char* order : {"1-1 2-3", "2-3 1-1"}) {
        QDir(folder.path("left")).removeRecursively();
        for (const QString& rows : commandLine(order))
            EXPECT_EQ(made("--out left --rows", QStringList(rows)), 1) << order;
        EXPECT_EQ(QImage(folder.path("left/p.jpg")).width(), 30 + 'x') << order << ": the one that is left";
    }
}
