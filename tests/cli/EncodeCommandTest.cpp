// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "tests/cli/Program.h"
#include "tests/support/CodecTestFiles.h"
#include "tests/support/TestPictures.h"
#include "tests/support/Text.h"

#include <QFileInfo>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

/// With a photograph that was taken upright, and whose JPEG file has a size for each quality.
class EncodeCommand : public testing::Test {
protected:
    EncodeCommand() {
        ImageBox box = boxWith(photograph(160, 120));
        EXPECT_TRUE(box.ExifSet(text("Orientation"), text("6")));
        box.SaveToFile(folder.path("photo.png"));
    }

    QJsonObject encoded(const char* arguments) const {
        const ProgramRun run = folder.run(commandLine("encode --json") + commandLine(arguments));
        const QJsonObject row = run.objects().value(0);
        EXPECT_EQ(run.status == 0, row.value(text("state")) == text("written")) << run.messages.constData();
        return row;
    }
    int sizeOf(const char* arguments) const { return encoded(arguments).value(text("bytes")).toInt(); }

    PictureFolder folder;
};

TEST_F(EncodeCommand, WritesEveryFormatByNameOrByExtensionAndUprightWhereTheOrientationIsLost) {
    for (const char* format : {"bmp", "gif", "jpg", "pcx", "png", "wbmp", "psd", "tif", "pdf"}) {
        const bool keepsOrientation = text("jpg png psd tif").contains(text(format));
        const QString out = text("out.") + text(format);
        const int size = sizeOf(qPrintable(text("photo.png ") + out));
        EXPECT_EQ(size, QFileInfo(folder.path(out)).size()) << format;
        EXPECT_GT(size, 100) << format;
        encoded(qPrintable(text("--format %1 photo.png plain").arg(text(format))));
        const QByteArray bytes = readWholeFile(folder.path(out));
        EXPECT_EQ(readWholeFile(folder.path("plain")), bytes) << format;
        sizeOf(qPrintable(text("--upright photo.png ") + out));
        EXPECT_EQ(readWholeFile(folder.path(out)) != bytes, keepsOrientation) << format;
    }
    ASSERT_TRUE(QFile::rename(folder.path("photo.png"), folder.path("photo"))); // loaded without its metadata
    encoded("photo bare.png");
    EXPECT_EQ(folder.loaded("bare.png").Width(), 120);
}

TEST_F(EncodeCommand, FindsTheBestQualityThatFits) {
    const QJsonObject row = encoded("--max-size 3K photo.png fit.jpg");
    EXPECT_EQ(row.value(text("bytes")).toInt(), QFileInfo(folder.path("fit.jpg")).size());
    EXPECT_NEAR(row.value(text("bytes")).toInt(), 0.985 * 3072, 0.015 * 3072);
    EXPECT_GT(row.value(text("quality")).toDouble(), 40);
    EXPECT_EQ(encoded("--max-size 3K --min-quality 99 photo.png fit.jpg").value(text("state")),
              text("failed"));
    EXPECT_LE(sizeOf("--max-size 3K --min-quality 99 --shrink photo.png fit.jpg"), 3072);
    EXPECT_LT(folder.loaded("fit.jpg").Width(), 160);
    EXPECT_EQ(encoded("--max-size 10000000 photo.png fit.jpg").value(text("quality")).toInt(), 100);
    EXPECT_EQ(encoded("--max-size 10000000 --quality 70 photo.png fit.jpg").value(text("quality")).toInt(),
              70);
    const QByteArray before = readWholeFile(folder.path("fit.jpg"));
    EXPECT_EQ(encoded("--max-size 50 photo.png fit.jpg").value(text("state")), text("failed"));
    EXPECT_TRUE(
        encoded("--max-size 50 --quality 30 photo.png fit.jpg")
            .value(text("reason"))
            .toString()
            .contains(text("photo.png: No file of at most 50 bytes is possible: at the lowest quality "
                           "allowed, 30, it has")));
    EXPECT_EQ(readWholeFile(folder.path("fit.jpg")), before);
}

TEST_F(EncodeCommand, OptionsReachTheEncoder) {
    const struct {
        const char* smaller;
        const char* larger;
    } pairs[] = {{"--colors 16-colors photo.png x.gif", "--colors 256-colors photo.png x.gif"},
                 {"--compression lzw photo.png x.gif", "--compression none photo.png x.gif"},
                 {"--colors monochrome-bw --compression group4 photo.png x.tif",
                  "--colors monochrome-bw --compression none photo.png x.tif"}};
    for (const auto& [smaller, larger] : pairs)
        EXPECT_LT(sizeOf(smaller), sizeOf(larger)) << smaller;
    encoded("--progressive photo.png x.jpg");
    EXPECT_TRUE(readWholeFile(folder.path("x.jpg")).contains(QByteArray("\xFF\xC2\0\x11", 4)));
    const Rgb color = colorAt(folder.loaded("photo.png").picture(), 3, 2);
    encoded(qPrintable(text("--transparent %1 photo.png x.png")
                           .arg(color.red << 16 | color.green << 8 | color.blue, 6, 16, QLatin1Char('0'))));
    EXPECT_EQ(alphaAt(folder.loaded("x.png").picture(), 3, 2), 0);
}

TEST_F(EncodeCommand, WhatAFormatDoesNotHaveIsWrongUsage) {
    for (const char* wrong :
         {"photo.png", "photo.png x.txt", "--format doc photo.png x.jpg",
          "--colors 16-colors photo.png x.jpg", "--colors many photo.png x.bmp",
          "--compression lzw photo.png x.tif", "--compression lzw photo.png x.jpg",
          "--transparent FF0000 photo.png x.jpg", "--transparent red photo.png x.gif",
          "--quality 5 photo.png x.gif", "--quality 101 photo.png x.jpg", "--max-size 0 photo.png x.jpg",
          "--max-size 2G photo.png x.jpg", "--shrink photo.png x.jpg", "--max-size 9999 photo.png x.png"})
        EXPECT_EQ(folder.run(commandLine("encode") + commandLine(wrong)).status, 2) << wrong;
    EXPECT_EQ(folder.run("encode gone.png x.jpg").status, 1);
}

} // namespace
