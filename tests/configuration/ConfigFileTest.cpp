// SPDX-License-Identifier: GPL-3.0-or-later
#include "configuration/ConfigFile.h"
#include "configuration/SettingsBeside.h"

#include "base/SafeFileWriter.h"
#include "configuration/ColumnWidths.h"
#include "configuration/RecordImage.h"
#include "tests/support/TestDesktop.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace tarsel;

namespace {

class ConfigFile : public testing::Test {
protected:
    test::TestDesktop desktop;
    QTemporaryDir folder;
    QString program = folder.filePath(QStringLiteral("program"));

    void SetUp() override { restart(); }

    QStringList restart() {
        ConfigRecord = {};
        return loadConfiguration(program);
    }
    static QString kept() { return ConfigPath + QStringLiteral(".damaged"); }
    /// The user gets one remark, the defaults hold, and settings are stored again.
    void expectFreshStart() {
        const QStringList remarks = restart();
        ASSERT_EQ(remarks.size(), 1);
        EXPECT_TRUE(remarks[0].contains(kept())) << remarks[0].toStdString();
        EXPECT_EQ(recordImage(ConfigRecord), recordImage(defaultRecord(program)));
        subSaveSetup();
        EXPECT_EQ(restart(), QStringList());
        EXPECT_EQ(readWholeFile(ConfigPath), recordImage(ConfigRecord));
        EXPECT_TRUE(desktop.reports.empty() && desktop.messages.empty());
    }
};

/// Bytes that no version of the program has written.
QByteArray foreignBytes(quint32 seed) {
    QByteArray bytes(3000, '\0');
    for (char& byte : bytes)
        byte = char((seed = seed * 1664525 + 1013904223) >> 24);
    return bytes;
}

} // namespace

TEST_F(ConfigFile, TheFirstStartTakesTheDefaultsAndLeavesAnEmptyFile) {
    EXPECT_EQ(recordImage(ConfigRecord), recordImage(defaultRecord(program)));
    EXPECT_TRUE(ConfigPath.startsWith(program + QLatin1Char('/')));
    EXPECT_FALSE(ConfigPath.mid(program.size() + 1).contains(QLatin1Char('.')));
    EXPECT_EQ(readWholeFile(ConfigPath), QByteArray());
    EXPECT_TRUE(desktop.messages.empty());
    restart(); // after a first run that never came to its end: a record of zeros
    EXPECT_EQ(recordImage(ConfigRecord), recordImage(recordFromImage({})));
}

TEST_F(ConfigFile, SettingsComeBackAtTheNextStartAlsoWhereDamagedOnesWereBesideTheRecord) {
    const QByteArray damaged = "\x01[\x80=\n]\xFF[[\n\n=",
                     later = "\n[BatchSave]\nSoon=1\n[Soon]\nUprightByExif=x";
    writeFileSafely(settingsPathBeside(), damaged);
    ConfigRecord.BatchSave.RenamePrefix = QStringLiteral("[Date Today]");
    ConfigRecord.LastFolder = QStringLiteral("/home/\u65E5\u672C");
    ConfigRecord.SplitterMain = 33;
    EXPECT_EQ(ConfigRecord.BatchSave.UprightByExif, 1) << "a fresh configuration turns pictures upright";
    EXPECT_EQ(ConfigRecord.BatchSave.StripPrivate, 0);
    ConfigRecord.BatchSave.UprightByExif = 0;
    ConfigRecord.BatchSave.StripPrivate = 1;
    ConfigRecord.PlayerSystem = 1;
    ConfigRecord.Album.ModernTemplate = 1;
    ConfigRecord.SaveAdvanced.JpgMostKilobytes = 90;
    subSaveSetup();
    restart();
    EXPECT_EQ(ConfigRecord.SaveAdvanced.JpgMostKilobytes, 90);
    EXPECT_EQ(ConfigRecord.SaveAdvanced.JpgLowestQuality, 40);
    ConfigRecord.SaveAdvanced = {};
    EXPECT_EQ(ConfigRecord.BatchSave.UprightByExif, 0);
    EXPECT_EQ(ConfigRecord.BatchSave.StripPrivate, 1);
    writeFileSafely(settingsPathBeside(), damaged + later);
    subSaveSetup();
    subSaveSetup();
    EXPECT_EQ(readWholeFile(settingsPathBeside()).replace("StripPrivate=true\nUprightByExif=false\n", ""),
              damaged + later +
                  "\n[Publishing]\nWindowsPlayers=true\n[Album]\nOnlyChanged=false\nStripPrivate=false"
                  "\nOriginals=false\nModernTemplate=true\n[Editing]\nLivePreview=true\n[Hints]\nSaveSeen="
                  "true\nTaskSeen=true\nOwnPicturesSeen=true\n")
        << "settings of a later version stay";
    EXPECT_EQ(ConfigRecord.BatchSave.RenamePrefix, QStringLiteral("[Date Today]"));
    EXPECT_EQ(ConfigRecord.LastFolder.trimmed(), QStringLiteral("/home/\u65E5\u672C"));
    EXPECT_EQ(ConfigRecord.SplitterMain, 33);
    EXPECT_TRUE(desktop.reports.empty());
}

TEST_F(ConfigFile, TheTailOfALongerOldFileStays) {
    const QByteArray image = recordImage(ConfigRecord);
    writeFileSafely(ConfigPath, QByteArray(image.size(), 'o') + "tail");
    subSaveSetup();
    EXPECT_EQ(readWholeFile(ConfigPath), image + "tail");
    restart();
    EXPECT_EQ(ConfigRecord.SplitterMain, 70);
}

TEST_F(ConfigFile, ASplitterAtTenThrowsTheFileAwayWithoutAWord) {
    ConfigRecord.SplitterMain = 10;
    ConfigRecord.Album.AlbumTitle = QStringLiteral("lost");
    subSaveSetup();
    restart();
    EXPECT_EQ(recordImage(ConfigRecord), recordImage(defaultRecord(program)));
    EXPECT_EQ(readWholeFile(ConfigPath), QByteArray());
    EXPECT_TRUE(readWholeFile(kept()).contains("lost")) << "and yet it can be looked up";
    EXPECT_TRUE(desktop.messages.empty());
    EXPECT_TRUE(desktop.reports.empty());
}

TEST_F(ConfigFile, ARecordCutAnywhereIsKeptBesideAndUsedAsFarAsItGoes) {
    const QByteArray image = recordImage(ConfigRecord);
    for (qsizetype size = 1; size < image.size(); size += 41) {
        QFile::remove(kept());
        writeFileSafely(ConfigPath, image.left(size));
        const QStringList remarks = restart();
        ASSERT_EQ(remarks.size(), 1) << size;
        const ConfigRecordData cut = recordFromImage(image.left(size));
        const bool isUsed = cut.SplitterMain != 0; // else there is hardly anything, and no usable window
        EXPECT_EQ(recordImage(ConfigRecord), recordImage(isUsed ? cut : defaultRecord(program))) << size;
        subSaveSetup();
        EXPECT_EQ(readWholeFile(kept()), image.left(size));
        EXPECT_EQ(restart(), QStringList()) << "it is whole now";
    }
    writeFileSafely(ConfigPath, image.left(9));
    EXPECT_TRUE(restart().value(0).contains(kept() + QStringLiteral("-2"))) << "the older one stays";
}

TEST_F(ConfigFile, WhatIsNoRecordIsKeptBesideAndTheDefaultsHold) {
    for (const quint32 seed : {1u, 2u, 3u}) {
        QFile::remove(kept());
        QByteArray foreign = foreignBytes(seed);
        writeFileSafely(ConfigPath, foreign);
        const QStringList remarks = restart();
        ASSERT_EQ(remarks.size(), 1) << seed;
        EXPECT_EQ(readWholeFile(kept()), foreign);
        EXPECT_EQ(recordImage(ConfigRecord), recordImage(defaultRecord(program)));
    }
    ConfigRecord = defaultRecord(program);
    ConfigRecord.SplitterLeft = -7; // a whole record of impossible values
    subSaveSetup();
    QFile::remove(kept());
    expectFreshStart();
    QFile::remove(kept());
    QFile::resize(ConfigPath, qint64(1) << 40); // none of it is read
    expectFreshStart();
    QFile::remove(kept());
    QFile::remove(ConfigPath);
    QDir().mkpath(ConfigPath + QStringLiteral("/mine"));
    expectFreshStart();
    EXPECT_TRUE(QDir(kept() + QStringLiteral("/mine")).exists());
    QDir(kept()).removeRecursively();
    QFile::remove(ConfigPath);
    ASSERT_EQ(::mkfifo(QFile::encodeName(ConfigPath).constData(), S_IRUSR | S_IWUSR), 0);
    expectFreshStart();
    QFile::remove(settingsPathBeside());
    QDir().mkpath(settingsPathBeside());
    EXPECT_TRUE(restart().value(0).contains(settingsPathBeside() + QStringLiteral(".damaged")));
}

TEST_F(ConfigFile, UnequalBasketThumbnailsChangeTheirSidesAtEachStart) {
    storeBasketThumbnailSize(60, 30);
    for (const int width : {30, 60}) {
        subSaveSetup();
        restart();
        EXPECT_EQ(ConfigRecord.BasketThumbWidth, width);
        EXPECT_EQ(ConfigRecord.BasketThumbHeight, 90 - width);
        storeBasketThumbnailSize(ConfigRecord.BasketThumbWidth, ConfigRecord.BasketThumbHeight);
    }
}

TEST_F(ConfigFile, ErrorsAreReportedAndTheOldFileOrTheDefaultsHold) {
    subSaveSetup();
    const QByteArray before = readWholeFile(ConfigPath);
    ConfigRecord.Tasks.Text = QString(70000, QLatin1Char('x')); // can't be stored
    subSaveSetup();
    EXPECT_EQ(readWholeFile(ConfigPath), before);
    QFile::remove(ConfigPath);
    ASSERT_EQ(::mkfifo(QFile::encodeName(ConfigPath).constData(), S_IRUSR | S_IWUSR), 0);
    subLoadSetup(program); // it came after the look at the start
    EXPECT_EQ(recordImage(ConfigRecord), recordImage(defaultRecord(program)));
    subSaveSetup();
    ASSERT_EQ(desktop.reports.size(), 3u);
    EXPECT_EQ(desktop.reports[0].ErrRoutine, QStringLiteral("subSaveSetup"));
    EXPECT_EQ(desktop.reports[1].ErrRoutine, QStringLiteral("subLoadSetup"));
    EXPECT_EQ(desktop.reports[2].ErrRoutine, QStringLiteral("subSaveSetup"));
}

TEST_F(ConfigFile, ColumnWidthsAreReachedInTheOrderOfTheColumns) {
    const auto widths = folderColumnWidths(ConfigRecord);
    for (size_t i = 0; i < widths.size(); ++i)
        *widths[i] = qint16(200 + i);
    EXPECT_EQ(ConfigRecord.FolderColumnWidth1, 200);
    EXPECT_EQ(ConfigRecord.FolderColumnWidth8, 207);
    EXPECT_EQ(basketColumnWidths(ConfigRecord).size(), 5u);
}
