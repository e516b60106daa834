// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "imaging/ImageBox.h"
#include "tests/cli/Program.h"
#include "tests/support/Corpus.h"

#include <QFileInfo>
#include <QJsonArray>
#include <algorithm>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

QString text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

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

TEST(InfoCommand, TellsHeaderSizeAndMetadata) {
    const PictureFolder folder;
    makePicture(folder.path(text("a.jpg")), 31, 17, text("Jo"));
    const ProgramRun run = folder.run(commandLine("info --json a.jpg"));
    EXPECT_EQ(run.status, 0);
    const QJsonObject picture = run.objects().value(0);
    EXPECT_EQ(picture.value(text("path")).toString(), folder.path(text("a.jpg")));
    EXPECT_EQ(picture.value(text("state")).toString(), text("ok"));
    EXPECT_EQ(picture.value(text("format")).toString(), text("JPEG"));
    EXPECT_EQ(picture.value(text("width")).toInt(), 31);
    EXPECT_EQ(picture.value(text("height")).toInt(), 17);
    EXPECT_EQ(picture.value(text("bitsPerPixel")).toInt(), 24);
    EXPECT_EQ(picture.value(text("pages")).toInt(), 1);
    EXPECT_EQ(picture.value(text("header")).toObject().value(text("width")).toInt(), 31);
    EXPECT_EQ(valueOf(picture, "exif", "name", "Artist"), text("Jo"));
    EXPECT_EQ(picture.value(text("iptc")).toArray().size(), 52);
}

TEST(InfoCommand, AFailingFileIsToldAndDoesntStopTheOthers) {
    const PictureFolder folder;
    writeFileSafely(folder.path(text("bad.jpg")), "no picture");
    writeFileSafely(folder.path(text("cut.jpg")), readWholeFile(folder.path(text("a.jpg"))).left(300));
    writeFileSafely(folder.path(text("empty.jpg")), "");
    const ProgramRun run = folder.run(commandLine("info --json gone.jpg bad.jpg empty.jpg . cut.jpg a.jpg"));
    EXPECT_EQ(run.status, 1);
    const auto pictures = run.objects();
    ASSERT_EQ(pictures.size(), 6);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(pictures[i].value(text("state")).toString(), text("failed")) << i;
        EXPECT_FALSE(pictures[i].value(text("reason")).toString().isEmpty()) << i;
    }
    EXPECT_EQ(pictures[5].value(text("state")).toString(), text("ok"));
    EXPECT_EQ(pictures[5].value(text("damage")).toString(), QString());
    EXPECT_EQ(folder.run(commandLine("info gone.jpg a.jpg")).status, 1);
}

TEST(InfoCommand, DamageIsToldThoughThereIsAPicture) {
    const PictureFolder folder;
    makePicture(folder.path(text("big.jpg")), 160, 160);
    const QByteArray bytes = readWholeFile(folder.path(text("big.jpg")));
    writeFileSafely(folder.path(text("big.jpg")), bytes.left(bytes.size() * 3 / 4));
    const ProgramRun run = folder.run(commandLine("info --json big.jpg"));
    EXPECT_EQ(run.status, 1);
    const QJsonObject picture = run.objects().value(0);
    EXPECT_EQ(picture.value(text("state")).toString(), text("ok"));
    EXPECT_EQ(picture.value(text("width")).toInt(), 160);
    EXPECT_FALSE(picture.value(text("damage")).toString().isEmpty());
    EXPECT_TRUE(folder.run(commandLine("info big.jpg")).output.contains("damaged: "));
}

TEST(InfoCommand, NamesThatAreNotUtf8AreOpenedAndControlCharactersAreWrittenOut) {
    const PictureFolder folder;
    // Removed again by the shell: a temporary folder can't remove a name that it can't read.
    const ProgramRun raw =
        runShell("name=$(printf 'r\\377w.jpg') && cp a.jpg \"$name\" && "
                 "\"$TARSEL\" info --json \"$name\"; status=$?; rm \"$name\"; exit $status",
                 folder.path());
    EXPECT_EQ(raw.status, 0) << raw.messages.constData() << raw.output.constData();
    EXPECT_EQ(raw.objects().value(0).value(text("width")).toInt(), 24);
    EXPECT_TRUE(raw.output.contains("r\\udcffw.jpg")) << raw.output.constData();
    const ProgramRun control = runShell("name=$(printf 'c\\033[31m\\302\\233.jpg') && cp a.jpg \"$name\" && "
                                        "exec \"$TARSEL\" info \"$name\"",
                                        folder.path());
    EXPECT_EQ(control.status, 0);
    EXPECT_TRUE(control.output.contains("c\\x1b[31m\\x9b.jpg")) << control.output.constData();
}

TEST(InfoCommand, EveryDamagedPictureOfTheCorpusEndsInAResult) {
    TARSEL_REQUIRE_CORPUS();
    QStringList words = commandLine("info --json");
    for (const CorpusPicture& picture : corpusPictures())
        if (picture.fact("category") == text("bad"))
            words << picture.path;
    ASSERT_GT(words.size(), 10);
    const ProgramRun run = runProgram(words, *corpusFolder());
    EXPECT_TRUE(run.status == 0 || run.status == 1) << run.status;
    EXPECT_EQ(run.objects().size(), words.size() - 2);
    for (const QJsonObject& picture : run.objects())
        EXPECT_FALSE(picture.value(text("path")).toString().isEmpty());
}

TEST(InfoCommand, AnUnreadableDateIsToldWithItsFile) {
    const PictureFolder folder;
    ImageBox box;
    box.LoadFromFile(folder.path(text("a.jpg")));
    ASSERT_TRUE(box.ExifSet(text("DateTime"), text("yesterday at noon..")));
    box.SaveToFile(folder.path(text("odd.jpg")));
    const ProgramRun run = folder.run(commandLine("info --json a.jpg odd.jpg"));
    EXPECT_EQ(run.objects().size(), 2);
    EXPECT_TRUE(run.messages.contains("13 - " + folder.path(text("odd.jpg")).toUtf8()))
        << run.messages.constData();
}

TEST(ApplyCommand, ReplaysTheListAndKeepsMetadata) {
    const PictureFolder folder;
    makePicture(folder.path(text("a.jpg")), 40, 20, text("Jo"));
    writeFileSafely(folder.path(text("half.tbf")), taskLine("3", "resize", {text("False"), text("50")}));
    const ProgramRun run = folder.run(commandLine("apply --json --tasks half.tbf a.jpg half.jpg"));
    EXPECT_EQ(run.status, 0) << run.messages.constData();
    EXPECT_EQ(run.objects().value(0).value(text("state")).toString(), text("written"));
    ImageBox box;
    box.LoadFromFile(folder.path(text("half.jpg")));
    EXPECT_EQ(box.Width(), 20);
    EXPECT_EQ(box.ExifValueByName(text("Artist")), text("Jo"));
}

TEST(ApplyCommand, APreviewAndALosslessApplyAreTheSamePixels) {
    const PictureFolder folder;
    writeFileSafely(folder.path(text("list.tbf")), taskLine("3", "resize", {text("False"), text("150")}) +
                                                       taskLine("7", "sharpen", {text("2")}) +
                                                       taskLine("1", "flip", {text("1")}));
    const ProgramRun run = folder.run(commandLine("apply --tasks list.tbf a.jpg a.png"));
    ASSERT_EQ(run.status, 0) << run.messages.constData();
    ImageBox applied, preview;
    applied.LoadFromFile(folder.path(text("a.png")));
    preview.LoadFromFile(folder.path(text("a.jpg")));
    preview.Scale(150);
    preview.Sharpen(2);
    preview.Flip(1);
    EXPECT_EQ(applied.picture(), preview.picture());
}

TEST(ApplyCommand, ATransparentPictureIsLaidOnWhiteFirstWhereTheTargetHasNoAlpha) {
    const PictureFolder folder;
    Picture clear(16, 16, 4); // black without any cover
    const PixelView pixels = clear.edit();
    for (int y = 0; y < 16; ++y)
        std::fill_n(pixels.row(y), 16 * 4, std::uint8_t(0));
    ImageBox maker;
    maker.setPictureHandle(clear);
    maker.SaveToFile(folder.path(text("clear.png")));
    writeFileSafely(folder.path(text("l.tbf")), taskLine("11", "invert", {}));
    for (const char* out : {"x.bmp", "x.jpg", "x.png", "x.tif"})
        EXPECT_EQ(folder.run(commandLine("apply --tasks l.tbf clear.png") + QStringList{text(out)}).status,
                  0);
    const auto picture = [&](const char* name) {
        ImageBox box;
        box.LoadFromFile(folder.path(text(name)));
        return box.picture();
    };
    EXPECT_EQ(picture("x.bmp").view().pixel(8, 8)[0], 0) << "white inverted";
    EXPECT_LT(picture("x.jpg").view().pixel(8, 8)[0], 5);
    EXPECT_TRUE(picture("x.png").hasAlpha());
    EXPECT_TRUE(picture("x.tif").hasAlpha());
}

TEST(ApplyCommand, AFailingTaskWritesNothing) {
    const PictureFolder folder;
    writeFileSafely(folder.path(text("bad.tbf")), taskLine("7", "sharpen", {text("very")}));
    const QByteArray before = readWholeFile(folder.path(text("b.jpg")));
    const ProgramRun run = folder.run(commandLine("apply --json --tasks bad.tbf a.jpg b.jpg"));
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.objects().value(0).value(text("state")).toString(), text("failed"));
    EXPECT_TRUE(run.objects().value(0).value(text("reason")).toString().contains(text("task 1 (sharpen)")));
    EXPECT_EQ(readWholeFile(folder.path(text("b.jpg"))), before);
}

TEST(ApplyCommand, AnUnknownOutputFormatIsWrongUsage) {
    const PictureFolder folder;
    writeFileSafely(folder.path(text("l.tbf")), taskLine("7", "sharpen", {text("2")}));
    for (const char* out : {"x.txt", "x", "x.jpg.doc"})
        EXPECT_EQ(folder.run(commandLine("apply --tasks l.tbf a.jpg") + QStringList{text(out)}).status, 2)
            << out;
    EXPECT_EQ(folder.run(commandLine("apply --tasks l.tbf gone.jpg x.jpg")).status, 1);
    EXPECT_EQ(folder.run(commandLine("apply --tasks l.tbf a.jpg gone/x.jpg")).status, 1);
}
