// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "tests/cli/Program.h"
#include "tests/support/MadePictures.h"
#include "tests/support/TestPictures.h"
#include "tests/support/Text.h"

#include <QFileInfo>
#include <QJsonArray>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

QByteArray taskLine(const char* kind, const char* key, QStringList columns) {
    while (columns.size() < 17)
        columns << QString();
    return "\"" + QByteArray(kind) + "\",\"" + key + "\",\"" + columns.join(text("\",\"")).toUtf8() +
           "\"\r\n";
}

QString valueOf(const QJsonObject& picture, const char* list, const char* key, const char* name) {
    for (const QJsonValue& row : picture.value(QLatin1String(list)).toArray())
        if (row.toObject().value(QLatin1String(key)).toString() == QLatin1String(name))
            return row.toObject().value(text("value")).toString();
    return {};
}

} // namespace

TEST(InfoCommand, ListsHeaderSizeAndMetadata) {
    const PictureFolder folder;
    makePicture(folder.path("a.jpg"), 31, 17, text("Jo"));
    const ProgramRun run = folder.run("info --json a.jpg");
    EXPECT_EQ(run.status, 0);
    const QJsonObject picture = run.objects().value(0);
    const std::pair<const char*, QJsonValue> facts[] = {{"path", folder.path("a.jpg")},
                                                        {"state", text("ok")},
                                                        {"format", text("JPEG")},
                                                        {"width", 31},
                                                        {"height", 17},
                                                        {"bitsPerPixel", 24},
                                                        {"pages", 1}};
    for (const auto& [key, value] : facts)
        EXPECT_EQ(picture.value(text(key)), value) << key;
    EXPECT_EQ(picture.value(text("header")).toObject().value(text("width")).toInt(), 31);
    EXPECT_EQ(valueOf(picture, "exif", "name", "Artist"), text("Jo"));
    EXPECT_EQ(picture.value(text("iptc")).toArray().size(), 52);
}

TEST(InfoCommand, TroubleWithAFileIsReportedAndDoesNotStopTheOthers) {
    const PictureFolder folder;
    writeFileSafely(folder.path("bad.jpg"), "no picture");
    writeFileSafely(folder.path("empty.jpg"), "");
    makePicture(folder.path("cut.jpg"), 160, 160);
    const QByteArray bytes = readWholeFile(folder.path("cut.jpg"));
    writeFileSafely(folder.path("cut.jpg"), bytes.left(bytes.size() * 3 / 4));
    ImageBox box = folder.loaded("a.jpg");
    ASSERT_TRUE(box.ExifSet(text("ExposureTime"), text("0/1")));
    box.SaveToFile(folder.path("odd.jpg"));
    const QStringList names = commandLine("gone.jpg bad.jpg empty.jpg . cut.jpg odd.jpg b.jpg");
    const ProgramRun run = folder.run(commandLine("info --json") + names);
    EXPECT_EQ(run.status, 1);
    const auto pictures = run.objects();
    ASSERT_EQ(pictures.size(), names.size());
    for (int i = 0; i < names.size(); ++i) {
        SCOPED_TRACE(names[i].toStdString());
        const bool fails = i < 4;
        EXPECT_EQ(pictures[i].value(text("state")).toString(), text(fails ? "failed" : "ok"));
        EXPECT_EQ(pictures[i].value(text("reason")).toString().isEmpty(), !fails);
        EXPECT_EQ(pictures[i].value(text("damage")).toString().isEmpty(), names[i] != text("cut.jpg"));
        for (const char* command : {"encode --json %1 x.png", "batch --json --out made %1"}) {
            const QString words = text(command).arg(names[i]);
            if (fails) {
                EXPECT_EQ(folder.run(qPrintable(words)).objects().value(0).value(text("reason")),
                          pictures[i].value(text("reason")));
            }
        }
    }
    EXPECT_EQ(pictures[4].value(text("width")).toInt(), 160);
    EXPECT_TRUE(contains(run.messages, qPrintable(text("11 - ") + folder.path("odd.jpg"))));
    for (const char* name : {"gone.jpg", "cut.jpg"})
        EXPECT_EQ(folder.run(commandLine("info --json b.jpg") + commandLine(name)).status, 1) << name;
    ASSERT_TRUE(QFile::copy(folder.path("cut.jpg"), folder.path("cut.jpe"))); // loaded by content
    for (const char* command : {"info cut.jpg", "info cut.jpe"})
        EXPECT_TRUE(contains(folder.run(command).output, "damaged: ")) << command;
}

TEST(FileNames, AnyBytesAreReadAndWrittenAndCanNotFakeALine) {
    const struct {
        const char* commands;
        int status;
        const char* part; ///< of what the program says
    } cases[] = {
        {"$T info --json $r", 0, "r\\udcffw.jpg"},
        {"$T info $r", 0, "r\\xffw.jpg"},
        {"cp a.jpg \"$c\"; $T info \"$c\"", 0, "c\\x1b[31m\\x9b\\x0a.jpg"},
        {"$T encode $r $d/x.png && test -s $d/x.png", 0, "d\\xfe/x.png"},
        {"$T encode a.jpg $r && cmp $r $d/in.jpg", 1, "r\\xffw.jpg"},
        {"$T apply --tasks $l $r $r.png && test -s $r.png", 0, "r\\xffw.jpg.png"},
        {"$T batch --tasks $l --out $d $r && test -s $d/r%ffw.jpg", 0, "d\\xfe/r%ffw.jpg"},
        {"cd $d; $T batch --json --source-folder in.jpg && cmp in.jpg ../a.jpg", 1, "d\\udcfe/in.jpg"},
        {"$T batch --source-folder a.jpg $r", 2, "not UTF-8"},
        {"$T batch --out $d.new a.jpg", 2, "not UTF-8"},
        {"$T basket save x.ibf a.jpg $r", 1, "not UTF-8"},
        {"$T tasks $l", 0, "Orientation"},
        {"$T info a.jpg ''", 2, "is empty"},
    };
    const PictureFolder folder;
    writeFileSafely(folder.path("l.tbf"), taskLine("1", "flip", {text("1")}));
    for (const auto& [commands, status, part] : cases) {
        SCOPED_TRACE(commands);
        // Removed again by the shell: a temporary folder can't remove a name that it can't read.
        const QByteArray line =
            QByteArray("export T=\"$TARSEL\"; n() { printf \"$1\"; }; r=$(n 'r\\377w.jpg'); "
                       "d=$(n 'd\\376'); l=$(n 'l\\375.tbf'); c=$(n 'c\\033[31m\\302\\233\\n.jpg'); "
                       "cp a.jpg $r; mkdir $d; cp a.jpg $d/in.jpg; cp l.tbf $l; (") +
            commands + "); status=$?; rm -r $r* $d* $l; exit $status";
        const ProgramRun run = runShell(line.constData(), folder.path());
        EXPECT_EQ(run.status, status) << run.messages.constData();
        EXPECT_TRUE(contains(run.output + run.messages, part));
    }
}

TEST(ApplyCommand, ReplaysTheListAndKeepsMetadata) {
    const PictureFolder folder;
    makePicture(folder.path("a.jpg"), 40, 20, text("Jo"));
    writeFileSafely(folder.path("half.tbf"), taskLine("3", "resize", {text("False"), text("50")}));
    const ProgramRun run = folder.run("apply --json --tasks half.tbf a.jpg half.jpg");
    EXPECT_EQ(run.status, 0) << run.messages.constData();
    EXPECT_EQ(run.objects().value(0).value(text("state")).toString(), text("written"));
    const ImageBox box = folder.loaded("half.jpg");
    EXPECT_EQ(box.Width(), 20);
    EXPECT_EQ(box.ExifValueByName(text("Artist")), text("Jo"));
}

TEST(ApplyCommand, ATransparentPictureIsLaidOnWhiteFirstWhereTheTargetHasNoAlpha) {
    const PictureFolder folder;
    boxWith(redBesideHiddenGreen(16, 16)).SaveToFile(folder.path("clear.png"));
    writeFileSafely(folder.path("l.tbf"), taskLine("11", "invert", {}));
    for (const char* out : {"x.bmp", "x.jpg", "x.png", "x.tif"})
        EXPECT_EQ(folder.run(commandLine("apply --tasks l.tbf clear.png") + commandLine(out)).status, 0);
    const auto picture = [&](const char* name) { return folder.loaded(name).picture(); };
    EXPECT_EQ(picture("x.bmp").view().pixel(8, 8)[0], 0) << "white inverted";
    EXPECT_LT(picture("x.jpg").view().pixel(8, 8)[0], 5);
    EXPECT_TRUE(picture("x.png").hasAlpha());
    EXPECT_TRUE(picture("x.tif").hasAlpha());
}

TEST(ApplyCommand, WhatFailsIsNamedAndWritesNothing) {
    const PictureFolder folder;
    writeFileSafely(folder.path("bad.tbf"), taskLine("7", "sharpen", {text("very")}));
    writeFileSafely(folder.path("l.tbf"), taskLine("7", "sharpen", {text("2")}));
    const QByteArray before = readWholeFile(folder.path("b.jpg"));
    const std::pair<const char*, const char*> cases[] = {{"bad.tbf a.jpg b.jpg", "task 1 (sharpen)"},
                                                         {"l.tbf gone.jpg b.jpg", "gone.jpg"},
                                                         {"l.tbf a.jpg gone/x.jpg", "gone/x.jpg"}};
    for (const auto& [words, part] : cases) {
        const ProgramRun run = folder.run(commandLine("apply --json --tasks") + commandLine(words));
        EXPECT_EQ(run.status, 1) << words;
        EXPECT_EQ(run.objects().value(0).value(text("state")), text("failed")) << words;
        EXPECT_TRUE(contains(run.objects().value(0).value(text("reason")).toString(), part));
        EXPECT_EQ(run.messages.count(part), 1) << run.messages.constData();
        EXPECT_EQ(readWholeFile(folder.path("b.jpg")), before);
    }
}

TEST(ApplyCommand, NoCommandSavesAPartOfAFileOverItOrLosesSomethingSilently) {
    const PictureFolder folder;
    makePicture(folder.path("cut.jpg"), 160, 160);
    const QByteArray all = readWholeFile(folder.path("cut.jpg"));
    writeFileSafely(folder.path("cut.jpg"), all.left(all.size() * 3 / 4));
    for (const char* name : {"pages.tif", "pages.jpg"})
        makeDocument(folder.path(name), {{QSize(8, 8)}, {QSize(9, 8)}});
    writeFileSafely(folder.path("l.tbf"), taskLine("1", "flip", {text("1")}));
    for (const auto& [name, words] : {std::pair{"cut.jpg", "apply --tasks l.tbf cut.jpg ./cut.jpg"},
                                      {"cut.jpg", "encode cut.jpg cut.jpg"},
                                      {"cut.jpg", "batch --source-folder cut.jpg"},
                                      {"pages.tif", "encode pages.tif pages.tif"},
                                      {"pages.tif", "apply --tasks l.tbf pages.tif pages.tif"},
                                      {"pages.jpg", "batch --source-folder pages.jpg"}}) {
        const QByteArray bytes = readWholeFile(folder.path(name));
        const ProgramRun run = folder.run(words);
        EXPECT_EQ(run.status, 1) << words;
        EXPECT_TRUE(contains(run.output + run.messages, "was not replaced: it could be read only in part"))
            << words;
        EXPECT_EQ(readWholeFile(folder.path(name)), bytes) << words;
    }
    ImageBox box = folder.loaded("a.jpg");
    ASSERT_TRUE(box.ExifSet(text("Orientation"), text("6")));
    box.SaveToFile(folder.path("a.jpg"));
    for (const auto& [words, part] :
         {std::pair{"encode pages.tif x.png", "only the first of its 2 pages was saved"},
          {"apply --tasks l.tbf pages.tif x.png", "only the first of its 2 pages was saved"},
          {"apply --tasks l.tbf a.jpg x.bmp", "can't hold the EXIF orientation"}}) {
        const ProgramRun run = folder.run(words);
        EXPECT_EQ(run.status, 0) << words;
        EXPECT_EQ(run.messages.count(part), 1) << words;
    }
}

TEST(TasksCommand, ShowsEachRowInWordsAndWhatARunWouldDoWithIt) {
    const PictureFolder folder;
    writeFileSafely(
        folder.path("a.tbf"),
        taskLine("2", "rotate", {text("True"), text("-45"), text("33023")}) +
            taskLine("8", "crop", {text("True"), text("1"), text("0"), text("0"), text("9"), text("x")}) +
            taskLine("99", "text", {}) +
            taskLine("9", "watermark", {text("False"), text("0"), text("2"), text("gone.png")}) +
            taskLine("14", "mask", {text("False"), text("0"), text("8")}));
    const ProgramRun run = folder.run("tasks a.tbf");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(
        run.output.toStdString(),
        "    1  Rotate: smooth on, degrees -45, back color #FF8000  [ok: degrees is -45, outside 0 to 360]\n"
        "    2  Crop: typed on, shape ellipse, left 0, top 0, right 9, bottom \"x\", back color \"\""
        "  [failed: bottom: Type mismatch: \"x\" is not a number]\n"
        "    3  text  [skipped: no task has the kind 99]\n"
        "    4  Watermark: transparent off, transparency 0, style tile, path \"gone.png\""
        "  [failed: the file \"gone.png\" is missing]\n"
        "    5  Mask: transparent off, transparency 0, number 8"
        "  [failed: Subscript out of range: artwork 8 does not exist]\n");
    const QJsonObject row = folder.run("tasks --json a.tbf").objects().value(0);
    EXPECT_EQ(row.value(text("state")), text("ok"));
    EXPECT_EQ(valueOf(row, "parameters", "name", "degrees"), text("-45"));
    writeFileSafely(folder.path("b.tbf"), taskLine("1", "flip", {text("1")}));
    const ProgramRun fine = folder.run("tasks b.tbf");
    EXPECT_EQ(fine.output, "    1  Orientation: direction vertical\n");
    EXPECT_EQ(fine.status, 0);
}
