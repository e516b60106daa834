// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/MetadataBasket.h"
#include "base/SafeFileWriter.h"
#include "publishing/MetadataLines.h"
#include "tests/support/TestDesktop.h"
#include "tests/support/Text.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;
using namespace tarsel::modSaveOpenImageList;

TEST(MetadataBasketFile, KeepsItsLinesAndCompletesItsName) {
    TestDesktop desktop;
    const QTemporaryDir folder;
    QString path = folder.filePath(text("list"));
    EXPECT_FALSE(fncSaveMetadataBasket(path, {}));
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_TRUE(fncSaveMetadataBasket(path, {text("EXIF - Make"), text("say \"\u00FC\"")}));
    EXPECT_EQ(path, folder.filePath(text("list.mbf")));
    EXPECT_EQ(readWholeFile(path), "\"EXIF - Make\"\r\n\"say \"\xFC\"\"\r\n");
    QStringList read{text("old")};
    EXPECT_TRUE(fncOpenMetadataBasket(path, read));
    EXPECT_EQ(read, QStringList({text("EXIF - Make"), text("say \"\u00FC\"")}));

    QString upper = folder.filePath(text("ALL.MBF"));
    EXPECT_TRUE(fncSaveMetadataBasket(upper, metadataLines()));
    EXPECT_TRUE(fncOpenMetadataBasket(folder.filePath(text("ALL.MBF")), read));
    EXPECT_EQ(read, metadataLines());
    QString unwritable = folder.filePath(text("missing/x.mbf"));
    EXPECT_FALSE(fncSaveMetadataBasket(unwritable, read));
    EXPECT_EQ(desktop.reports.back().ErrRoutine, text("modSaveOpenImageList.fncSaveMetadataBasket"));
}

TEST(MetadataBasketFile, DropsTheEndsOfEachLineAndStopsAtAnEmptyOne) {
    TestDesktop desktop;
    const QTemporaryDir folder;
    const QString path = folder.filePath(text("x.mbf"));
    QStringList read{text("old")};
    writeFileSafely(path, "  'plain'  \nbare\n\"\"");
    EXPECT_TRUE(fncOpenMetadataBasket(path, read));
    EXPECT_EQ(read, QStringList({text("plain"), text("ar"), QString()}));
    writeFileSafely(path, "\"a\"\r\n \r\n\"b\"\r\n");
    EXPECT_FALSE(fncOpenMetadataBasket(path, read));
    EXPECT_EQ(read, QStringList(text("a")));
    EXPECT_TRUE(contains(desktop.reports.back().ErrSystem, "x.mbf, line 2"));
    EXPECT_EQ(desktop.reports.back().ErrRoutine, text("modSaveOpenImageList.fncOpenMetadataBasket"));
    EXPECT_FALSE(fncOpenMetadataBasket(folder.filePath(text("none.mbf")), read));
    EXPECT_TRUE(read.isEmpty());
}
