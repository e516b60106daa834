// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "tests/cli/Program.h"
#include "tests/support/MadePictures.h"
#include "tests/support/TestPictures.h"
#include "tests/support/Text.h"

#include <QDir>
#include <QFileInfo>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

std::string targetNames(const ProgramRun& run) {
    QStringList names;
    for (const QJsonObject& object : run.objects())
        names << QFileInfo(object.value(QLatin1String("target")).toString()).fileName();
    return names.join(QLatin1Char(' ')).toStdString();
}

/// Number and state of each row.
std::string rows(const ProgramRun& run) {
    QStringList states;
    for (const QJsonObject& object : run.objects())
        if (object.contains(text("row")))
            states << text("%1 %2")
                          .arg(object.value(text("row")).toInt())
                          .arg(object.value(text("state")).toString());
    return states.join(text(", ")).toStdString();
}

const char textTask[] =
    "\"10\",\"text\",\"True\",\"False\",\"True\",\"0\",\"2\",\"DejaVu Sans\",\"10\",\"True\",\"False\","
    "\"False\",\"0\",\"0\",\"0\",\"8\",\"Hello\",\"0\",\"0\"\r\n";

} // namespace

TEST(BatchCommand, MakesTheFilesAndListsEachRow) {
    const PictureFolder folder;
    const ProgramRun run = folder.run("batch --json --out made a.jpg ./b.jpg");
    EXPECT_EQ(run.status, 0) << run.messages.constData();
    EXPECT_EQ(folder.files("made"), "a.jpg b.jpg");
    EXPECT_EQ(rows(run), "1 written, 2 written");
    const QJsonObject second = run.objects().at(1);
    EXPECT_EQ(second.keys(), commandLine("reason row source state target"));
    EXPECT_EQ(second.value(text("source")).toString(), folder.path("b.jpg"));
    EXPECT_EQ(second.value(text("target")).toString(), folder.path("made/b.jpg"));
    EXPECT_TRUE(contains(run.messages, "made the folder"));
    const ProgramRun plain = folder.run("batch --out made a.jpg b.jpg");
    ASSERT_EQ(plain.lines().size(), 2) << "results alone go to the standard output";
    EXPECT_TRUE(contains(plain.lines().at(0), "written"));
    EXPECT_TRUE(contains(plain.lines().at(0), "made/a.jpg"));
}

TEST(BatchCommand, WhateverIsNotDoneIsNamedAndEndsWithStatusOne) {
    struct Case {
        const char *words, *rows; ///< no rows: the run doesn't begin
        const char* part;         ///< of what the program says
    };
    const Case cases[] = {
        {"--tasks gone.x a.jpg", "", "gone.x"},
        {"--tasks . a.jpg", "", ": Is a directory"},
        {"--exif . a.jpg", "", ": Is a directory"},
        {"--iptc . a.jpg", "", ": Is a directory"},
        {"--exif gone.x a.jpg", "", "gone.x"},
        {"--iptc gone.x a.jpg", "", "gone.x"},
        {"--tasks nonsense.tbf a.jpg", "", "nonsense.tbf, record 1"},
        {"--tasks kind.tbf a.jpg", "", "kind.tbf, record 1"},
        {"--tasks short.tbf a.jpg", "", "short.tbf, record 1"},
        {"odd.ibf", "", "odd.ibf"},
        {"gone.ibf", "", "gone.ibf"},
        {"a.jpg gone.jpg bad.jpg c.jpg", "0 failed, 0 failed, 1 written, 2 written",
         "bad.jpg: unknown content"},
        {"scan.tif a.jpg", "0 failed, 1 written, 2 written", "page 2 of 2: "},
        {"scan.ibf", "0 failed, 1 written, 2 written", "page 2 of 2: "},
        {"--name hybrid --prefix [EXIF_Artist] a.jpg b.jpg c.jpg", "1 written, 2 failed, 3 skipped",
         "which no file name can"},
        {"b.png b.jpg", "1 written, 2 written", "replaces the file of row 1"},
        {"--tasks odd.tbf a.jpg", "1 written", "a.jpg: task 1 (sharpen): "},
        {"--dry-run --tasks odd.tbf a.jpg", "1 skipped", "task 1 (sharpen): "},
    };
    const PictureFolder folder;
    makePicture(folder.path("b.jpg"), 10, 10, text("x/y"));
    makePicture(folder.path("b.png"), QSize(90, 60));
    makeDocument(folder.path("scan.tif"), {{QSize(8, 8)}, {.size = QSize(8, 8), .compression = 31000}});
    const std::pair<const char*, QByteArray> files[] = {
        {"bad.jpg", "no picture"},
        {"nonsense.tbf", "nonsense"},
        {"kind.tbf", "\"seven\",\"sharpen\"\r\n"},
        {"short.tbf", "\"7\",\"sharpen\",\"2\"\r\n"},
        {"odd.tbf", "\"7\",\"sharpen\",\"very\"" + QByteArray(",\"\"").repeated(16) + "\r\n"},
        {"odd.ibf", "\"/x/a.jpg\"\r\n\r\n"},
    };
    for (const auto& [name, bytes] : files)
        writeFileSafely(folder.path(name), bytes);
    ASSERT_EQ(folder.run("basket save scan.ibf scan.tif a.jpg").status, 0);
    for (const Case& one : cases) {
        SCOPED_TRACE(one.words);
        QStringList words = commandLine("batch --json --out made") + commandLine(one.words);
        words.replaceInStrings(text("_"), text(" "));
        const ProgramRun run = folder.run(words);
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(rows(run), one.rows);
        EXPECT_EQ((run.output + run.messages).count(one.part), 1) << run.messages.constData();
        QDir made(folder.path("made"));
        EXPECT_EQ(made.exists(), std::string(one.rows).find("written") != std::string::npos);
        made.removeRecursively();
    }
}

TEST(BatchCommand, ASourceThatCouldNotBeReadIsNotReplacedByAnotherRow) {
    const PictureFolder folder;
    const QString unreadable = folder.path(text("b.jpg"));
    QDir(folder.path()).mkdir(text("in"));
    ASSERT_TRUE(QFile::copy(folder.path(text("a.jpg")), folder.path(text("in/b.jpg"))));
    const QByteArray content("\0\0\0\x18"
                             "ftypheic, which no reader here knows",
                             40);
    writeFileSafely(unreadable, content);
    for (const char* options : {"", "--out . "}) {
        const ProgramRun run =
            folder.run(commandLine("batch --json ") + commandLine(options) + commandLine("in/b.jpg b.jpg"));
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(rows(run), "0 failed, 1 skipped") << options;
        EXPECT_EQ(readWholeFile(unreadable), content) << options;
    }
}

TEST(BatchCommand, NamesFollowTheRulesAndNumbersThoseOfTheFullBasket) {
    const QString odd = text("-\u00fc \"quoted\" \u65e5.jpg");
    const std::pair<const char*, std::string> cases[] = {
        {"a.jpg b.jpg", "a.jpg b.jpg"},
        {"--name generic --generic X --count 32766 a.jpg b.jpg", "X32766.jpg X32767.jpg"},
        {"--name generic --count [Starting_1001] a.jpg", "Sample1001.jpg"},
        {"--name hybrid --prefix [Source_resolution] --suffix end a.jpg", "24x16_a_end.jpg"},
        {"--name hybrid --separator1 [No_Separator] --separator2 [WhiteSpace] --suffix end a.jpg",
         "a end.jpg"},
        {"--name generic --rows 2-3 a.jpg b.jpg c.jpg", "Sample2.jpg Sample3.jpg"},
        {"--name generic --rows 3- a.jpg b.jpg c.jpg", "Sample3.jpg"},
        {"--name generic --rows -1 a.jpg b.jpg c.jpg", "Sample1.jpg"},
        {"--name generic --rows 2 a.jpg b.jpg c.jpg", "Sample2.jpg"},
        {"--name generic --rows 2-99 a.jpg b.jpg c.jpg", "Sample2.jpg Sample3.jpg"},
        {"--name generic --rows 8-9 a.jpg b.jpg c.jpg", ""},
        {"x.ibf", "a.jpg.jpg c.jpg.jpg"},
        {"doc.tiff a.jpg", "doc1.jpg doc2.jpg doc3.jpg a.jpg"},
        {"-- odd", odd.toStdString()},
    };
    const PictureFolder folder;
    makePicture(folder.path(odd));
    makeDocument(folder.path("doc.tiff"), {{QSize(8, 8)}, {QSize(9, 8)}, {QSize(10, 8)}});
    ASSERT_EQ(folder.run("basket save x.ibf a.jpg c.jpg").status, 0);
    const std::string before = folder.files();
    for (const auto& [options, names] : cases) {
        SCOPED_TRACE(options);
        QStringList words = commandLine(options);
        words.replaceInStrings(text("_"), text(" "));
        words.replaceInStrings(text("odd"), odd);
        const ProgramRun run = folder.run(commandLine("batch --json --out made") + words);
        EXPECT_EQ(run.status, 0) << run.messages.constData();
        EXPECT_EQ(targetNames(run), names);
        EXPECT_EQ(folder.files("made").empty(), names.empty());
        QDir(folder.path("made")).removeRecursively();
    }
    EXPECT_EQ(folder.files(), before) << "pages leave no other file";
    EXPECT_EQ(folder.run("batch --name generic a.jpg").status, 0);
    EXPECT_TRUE(contains(text(folder.files().c_str()), "Sample1.jpg")) << "into the current folder";
}

TEST(BatchCommand, WrongUsageIsRefusedWithAHintAndDoesNothing) {
    const auto expectRefusal = [](const QStringList& words) {
        SCOPED_TRACE(words.join(QLatin1Char(' ')).toStdString());
        const PictureFolder folder;
        const ProgramRun run = folder.run(words);
        EXPECT_EQ(run.status, 2);
        EXPECT_TRUE(contains(run.messages, "--help"));
        EXPECT_TRUE(run.output.isEmpty());
        EXPECT_EQ(folder.files(), "a.jpg b.jpg c.jpg");
        EXPECT_FALSE(QFileInfo::exists(folder.path("made")));
    };
    for (const char* words :
         {"", "bogus", "info", "tasks", "basket", "basket list", "basket save x.txt a.jpg", "batch",
          "batch a.jpg", "batch --source-folder --name generic a.jpg", "apply a.jpg x.jpg"})
        expectRefusal(commandLine(words));
    for (const char* words :
         {"", "a.jpg x.ibf", "--source-folder a.jpg", "--quality 0 a.jpg", "--quality 80% a.jpg",
          "--name fancy a.jpg", "--name generic --count one a.jpg", "--name generic --count= a.jpg",
          "--prefix x a.jpg", "--name hybrid --prefix x/y a.jpg", "--name generic --generic ../x a.jpg",
          "--rows 0-2 a.jpg", "--rows 3-2 a.jpg", "--rows - a.jpg", "--rows 1-2-3 a.jpg",
          "--frobnicate a.jpg"})
        expectRefusal(commandLine("batch --out made") + commandLine(words));
    for (const char* target : {"x.txt", "x", "x.jpg.doc"})
        expectRefusal(commandLine("apply --tasks l.tbf a.jpg") + commandLine(target));
}

TEST(BatchCommand, SourcesAreReplacedOnlyWhenAskedForAndNoLaterRowNeedsThem) {
    const PictureFolder folder;
    const auto bytes = [&] { return readWholeFile(folder.path("a.jpg")); };
    const QByteArray before = bytes();
    EXPECT_EQ(folder.run("batch a.jpg").status, 2);
    EXPECT_EQ(folder.run("batch --no-overwrite a.jpg").status, 1);
    EXPECT_EQ(bytes(), before);
    EXPECT_EQ(folder.run("batch --source-folder --quality 20 a.jpg").status, 0);
    EXPECT_NE(bytes(), before);
    makePicture(folder.path("b.png"), QSize(90, 60));
    const ProgramRun run = folder.run("batch --json --source-folder b.png b.jpg");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(rows(run), "1 skipped, 2 written");
    EXPECT_TRUE(contains(run.output, "source of row 2"));
    EXPECT_EQ(folder.loaded("b.jpg").Width(), 26);
    EXPECT_EQ(folder.files(), "a.jpg b.jpg b.png c.jpg");
}

TEST(BatchCommand, OptionsOfThePictureReachTheFile) {
    const PictureFolder folder;
    ImageBox box = folder.loaded("a.jpg");
    ASSERT_TRUE(box.ExifSet(text("Orientation"), text("6")));
    box.SaveToFile(folder.path("a.jpg"));
    const std::tuple<const char*, int, int, bool> cases[] = {{"--quality=80", 24, 24, false},
                                                             {"--upright", 16, 24, false},
                                                             {"--progressive", 24, 24, true},
                                                             {"--gray", 24, 8, false}};
    for (const auto& [option, width, bits, progressive] : cases) {
        SCOPED_TRACE(option);
        ASSERT_EQ(folder.run(commandLine("batch --out made a.jpg") + QStringList{text(option)}).status, 0);
        const QJsonObject info = folder.run("info --json made/a.jpg").objects().value(0);
        EXPECT_EQ(info.value(text("width")).toInt(), width);
        EXPECT_EQ(info.value(text("header")).toObject().value(text("bitsPerPixel")).toInt(), bits);
        EXPECT_EQ(readWholeFile(folder.path("made/a.jpg")).contains("\xFF\xC2"), progressive);
    }
}

TEST(BatchCommand, WithAMaximumSizeSmallFilesKeepTheirPictureAndLargeOnesLoseQuality) {
    const PictureFolder folder;
    boxWith(noisePicture(200, 150, 3)).SaveToFile(folder.path("large.jpg"));
    boxWith(noisePicture(200, 150, 3)).SaveToFile(folder.path("other.png"));
    const auto scan = [&](const char* name) {
        const QByteArray bytes = readWholeFile(folder.path(name));
        return bytes.mid(bytes.indexOf("\xFF\xDA"));
    };
    const ProgramRun run =
        folder.run("batch --json --out made --max-size 9000 a.jpg large.jpg other.png b.jpg");
    EXPECT_EQ(rows(run), "1 written, 2 skipped, 3 skipped, 4 written") << run.messages.constData();
    EXPECT_TRUE(contains(run.objects().at(1).value(text("reason")).toString(), "allowed, 40, it has"));
    EXPECT_EQ(scan("made/a.jpg"), scan("a.jpg"));
    EXPECT_EQ(folder.loaded("made/a.jpg").ExifValueByName(text("Software")), text("Tarsel JPEG"));
    EXPECT_EQ(folder.run("batch --out made --max-size 9000 --shrink a.jpg large.jpg other.png").status, 0);
    for (const char* name : {"made/large.jpg", "made/other.jpg"})
        EXPECT_LE(QFileInfo(folder.path(name)).size(), 9000) << name;
    ASSERT_EQ(folder.run("batch --out made --max-size 9000 --gray a.jpg").status, 0);
    EXPECT_NE(scan("made/a.jpg"), scan("a.jpg"));
}

TEST(BatchCommand, ARelativePathInAFolderThatIsGoneIsAnError) {
    const PictureFolder folder;
    const ProgramRun run =
        runShell("mkdir gone && cd gone && rmdir ../gone && exec \"$TARSEL\" batch a.jpg", folder.path());
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(contains(run.messages, "the current folder no longer exists"));
}

TEST(BatchCommand, TextIsDrawnWithoutADisplay) {
    const PictureFolder folder;
    makePicture(folder.path("a.jpg"), 200, 100);
    writeFileSafely(folder.path("text.tbf"), textTask);
    const ProgramRun run = folder.run("batch --out made --tasks text.tbf a.jpg");
    EXPECT_EQ(run.status, 0) << run.messages.constData();
    ASSERT_EQ(folder.run("batch --out plain a.jpg").status, 0);
    EXPECT_NE(readWholeFile(folder.path("made/a.jpg")), readWholeFile(folder.path("plain/a.jpg")));
    EXPECT_EQ(run.messages.count('\n'), 2) << "no chatter of libraries: " << run.messages.constData();
}

TEST(Program, HelpAndVersionSucceedOnStandardOutput) {
    const PictureFolder folder;
    for (const char* words : {"--help", "-h", "--version", "--version --verbose", "batch --help",
                              "apply --help", "info --help", "basket --help", "batch --out x -h"}) {
        const ProgramRun run = folder.run(words);
        EXPECT_EQ(run.status, 0) << words;
        EXPECT_FALSE(run.output.isEmpty()) << words;
        EXPECT_TRUE(run.messages.isEmpty()) << words;
    }
}
