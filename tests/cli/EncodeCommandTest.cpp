// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "imaging/ImageBox.h"
#include "tests/cli/Program.h"
#include "tests/support/CodecTestFiles.h"
#include "tests/support/Text.h"

#include <QFileInfo>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

/// With a photograph, whose JPEG file has a size for each quality.
class EncodeCommand : public testing::Test {
protected:
    EncodeCommand() {
        ImageBox box;
        box.setPictureHandle(photograph(160, 120));
        box.SaveToFile(folder.path(text("photo.png")));
    }

    QJsonObject encoded(const char* arguments) const {
        const ProgramRun run = folder.run(commandLine("encode --json") + commandLine(arguments));
        const QJsonObject row = run.objects().value(0);
        EXPECT_EQ(run.status == 0, row.value(text("state")) == text("written")) << run.messages.constData();
        return row;
    }

    PictureFolder folder;
};

TEST_F(EncodeCommand, WritesEveryFormatByNameOrByExtension) {
    for (const char* format : {"bmp", "gif", "jpg", "pcx", "png", "wbmp", "psd", "tif", "pdf"}) {
        const QString out = text("out.") + text(format);
        const QJsonObject row = encoded(qPrintable(text("photo.png ") + out));
        EXPECT_EQ(row.value(text("bytes")).toInt(), QFileInfo(folder.path(out)).size()) << format;
        EXPECT_GT(row.value(text("bytes")).toInt(), 100) << format;
        encoded(qPrintable(text("--format %1 photo.png plain").arg(text(format))));
        EXPECT_EQ(readWholeFile(folder.path(text("plain"))), readWholeFile(folder.path(out))) << format;
    }
}

TEST_F(EncodeCommand, FindsTheBestQualityThatFits) {
    const auto sizeAt = [&](int quality) {
        return encoded(qPrintable(text("--quality %1 photo.png q.jpg").arg(quality)))
            .value(text("bytes"))
            .toInt();
    };
    const int limit = sizeAt(61);
    const QJsonObject row = encoded(qPrintable(text("--max-size %1 photo.png fit.jpg").arg(limit)));
    EXPECT_EQ(row.value(text("quality")).toInt(), 61);
    EXPECT_EQ(row.value(text("bytes")).toInt(), limit);
    EXPECT_EQ(encoded("--max-size 10000000 photo.png fit.jpg").value(text("quality")).toInt(), 100);
    EXPECT_EQ(encoded("--max-size 10000000 --quality 70 photo.png fit.jpg").value(text("quality")).toInt(),
              70);
    const QByteArray before = readWholeFile(folder.path(text("fit.jpg")));
    EXPECT_EQ(encoded("--max-size 50 photo.png fit.jpg").value(text("state")), text("failed"));
    EXPECT_EQ(readWholeFile(folder.path(text("fit.jpg"))), before);
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
        EXPECT_LT(encoded(smaller).value(text("bytes")).toInt(), encoded(larger).value(text("bytes")).toInt())
            << smaller;
    encoded("--progressive photo.png x.jpg");
    EXPECT_TRUE(readWholeFile(folder.path(text("x.jpg"))).contains(QByteArray("\xFF\xC2\0\x11", 4)));
    ImageBox box;
    box.LoadFromFile(folder.path(text("photo.png")));
    const Color color = box.PixelColor(3, 2);
    const QString rgb = text("%1%2%3")
                            .arg(color & 0xFF, 2, 16, QLatin1Char('0'))
                            .arg(color >> 8 & 0xFF, 2, 16, QLatin1Char('0'))
                            .arg(color >> 16 & 0xFF, 2, 16, QLatin1Char('0'));
    encoded(qPrintable(text("--transparent %1 photo.png x.png").arg(rgb)));
    box.LoadFromFile(folder.path(text("x.png")));
    EXPECT_EQ(box.picture().view().pixel(3, 2)[box.picture().channels() - 1], 0);
}

TEST_F(EncodeCommand, WhatAFormatDoesNotHaveIsWrongUsage) {
    for (const char* wrong : {"photo.png", "photo.png x.txt", "--format doc photo.png x.jpg",
                              "--colors 16-colors photo.png x.jpg", "--colors many photo.png x.bmp",
                              "--compression lzw photo.png x.tif", "--compression lzw photo.png x.jpg",
                              "--transparent FF0000 photo.png x.jpg", "--transparent red photo.png x.gif",
                              "--quality 5 photo.png x.gif", "--quality 101 photo.png x.jpg",
                              "--max-size 0 photo.png x.jpg", "--max-size 9999 photo.png x.png"})
        EXPECT_EQ(folder.run(commandLine("encode") + commandLine(wrong)).status, 2) << wrong;
    EXPECT_EQ(folder.run(commandLine("encode gone.png x.jpg")).status, 1);
}

} // namespace
