// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Progress.h"
#include "base/SafeFileWriter.h"
#include "publishing/EffectBuilder.h"
#include "publishing/ExtractedName.h"
#include "publishing/SaverBuilder.h"
#include "tests/output/TestBasket.h"
#include "tests/support/FileSizeLimit.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

/// A joined file as its layout says, read without any of the program's own code.
struct Parsed {
    explicit Parsed(const QByteArray& bytes) : file(bytes) {
        position = bytes.mid(bytes.size() - 11, 10).trimmed().toLongLong();
        list = bytes.mid(position, bytes.size() - position - 16);
        for (const QByteArray& line : list.split('\n'))
            if (!line.isEmpty())
                lines << line.split(';');
        options = bytes.mid(lines.last().at(1).toLongLong(), position - lines.last().at(1).toLongLong());
    }
    QByteArray block(int row) const {
        return file.mid(lines[row].at(1).toLongLong(), lines[row].at(2).toLongLong() + 1);
    }

    QByteArray file, list, options;
    qint64 position = 0;
    QList<QByteArrayList> lines;
};

class Joined : public testing::Test, public TestBasket {
protected:
    Joined() {
        for (const char* name : {"saver", "slide", "simple", "watery", "raining-text", "clock"})
            writePlayer(name, QByteArray("PLAYER ") + name);
        qputenv("TARSEL_PLAYERS", path("players").toUtf8());
        QDir().mkpath(path("tmp"));
        qputenv("TMPDIR", path("tmp").toUtf8());
        joined.status = [this](const QString& stage) { stages << stage; };
    }
    ~Joined() override {
        qunsetenv("TARSEL_PLAYERS");
        qunsetenv("TMPDIR");
    }
    void writePlayer(const char* name, const QByteArray& bytes) const {
        QDir().mkpath(path("players/linux"));
        writeFileSafely(path("players/linux/") + text(name), bytes);
    }
    bool makeSaver() {
        results.clear();
        std::function<std::vector<TaskRow>()> all;
        if (tasks.count() > 0)
            all = [this] { return std::vector{tasks.row(0)}; };
        return MkSaver(path("out.scr"), options, {pages, box, all}, progress, joined, results);
    }
    bool makeGreeting(GreetingStyle style, const char* picture, bool asks = false) {
        results.clear();
        options.EffectStyle = qint16(style);
        takeEffectOptions(options, record);
        return subMakeEffectExe(path("out.exe"), options, record, {path(picture), box, {}}, asks, joined,
                                results);
    }
    Parsed parsed(const char* name) const { return Parsed(readWholeFile(path(name))); }

    settings::PublishingSettings options;
    joined::EffectOptions record;
    JoinedRun joined;
    QStringList stages;
};

} // namespace

TEST_F(Joined, ASaverHasThePicturesOfItsRowsAndRuns) {
    addPictures({"one.jpg", "two.png"});
    addRow("missing.jpg", "gone");
    addRow(writeFile("broken.jpg", "\xFF\xD8\xFF\xE0 none"), text("broken"));
    addRow(path("one.jpg"), text("a;b"));
    halveSizes();
    options.SaverBackColor = 0x332211;
    options.SaverInterval = 7;
    ASSERT_TRUE(makeSaver());
    EXPECT_EQ(states(), "written written failed failed written");
    EXPECT_EQ(desktop.reports.size(), 1U) << "a missing file is left out silently";
    EXPECT_EQ(desktop.reports.front().ErrRoutine, text("modScreensaver.SaveTempJPEG"));
    EXPECT_EQ(stages, QStringList({text("Loading Template..."), text("Saving Options...")}));

    const Parsed saver = parsed("out.scr");
    EXPECT_TRUE(saver.file.startsWith(QByteArray("PLAYER saver\0", 13)));
    EXPECT_EQ(saver.file.size(), saver.position + saver.list.size() + 1 + 15);
    EXPECT_EQ(saver.file.mid(saver.file.size() - 15, 4), QByteArray("\x08\0\x0B\0", 4));
    EXPECT_EQ(saver.options, QByteArray("\x11\x22\x33\0\x07\0", 6));
    ASSERT_EQ(saver.lines.size(), 4);
    EXPECT_EQ(saver.lines[0].at(1).toInt(), 13);
    EXPECT_TRUE(saver.lines[2].at(0) == "a,b" && saver.lines[3].at(0) == "OPTIONS");
    for (int row = 0; row < 3; ++row) {
        const QByteArray jpeg = saver.block(row);
        EXPECT_TRUE(jpeg.endsWith(QByteArray("\xFF\xD9\0", 3)));
        writeFileSafely(path("row.jpg"), jpeg.chopped(1));
        EXPECT_EQ(width("row.jpg"), 12) << "the tasks ran";
    }
    EXPECT_EQ(readWholeFile(path("tmp/Saver.lst")), saver.list);
    EXPECT_TRUE(QFile::permissions(path("out.scr")) & QFile::ExeOwner);
}

TEST_F(Joined, ACancelLeavesAWorkingFileWithThePicturesSoFarOrTheOlderOne) {
    addPictures({"one.jpg", "two.jpg", "three.jpg"});
    desktop.onYield = [this] { CancelRequested = !progress.values.empty() && progress.values.back() == 2; };
    ASSERT_TRUE(makeSaver());
    EXPECT_EQ(states(), "written written skipped");
    EXPECT_EQ(parsed("out.scr").lines.size(), 3);
    progress.values.clear();
    writeFile("out.scr", "OLD");
    ASSERT_TRUE(makeSaver());
    EXPECT_EQ(states(), "skipped skipped skipped");
    EXPECT_EQ(readWholeFile(path("out.scr")), "OLD") << "a whole file is worth more";
    QFile::remove(path("out.scr"));
    CancelRequested = false;
    pages.clear();
    desktop.onYield = {};
    addRow("missing.jpg", "gone");
    ASSERT_TRUE(makeSaver());
    EXPECT_EQ(parsed("out.scr").list, QByteArray("OPTIONS;13;\r\n"));
}

TEST_F(Joined, WhatCantBeWrittenLeavesTheOldFile) {
    addPictures({"one.jpg", "two.jpg"});
    writeFile("out.scr", "OLD");
    writeFile("out.exe", "OLD");
    const auto expectOld = [&](const char* why, const char* part) {
        EXPECT_FALSE(makeSaver()) << why;
        EXPECT_TRUE(errors().contains(text(part))) << why << errors().toStdString();
        EXPECT_EQ(states().find("written"), std::string::npos) << why;
        EXPECT_EQ(readWholeFile(path("out.scr")), "OLD") << why;
    };
    reportFileSizeLimitAsError();
    {
        const FileSizeLimit fullDisk(1100);
        expectOld("a full disk", "modScreensaver.MkSaver: 61");
    }
    QFile player(path("players/linux/saver"));
    ASSERT_TRUE(player.resize(10'000'000'000));
    expectOld("positions of eleven digits", "10 GB");
    player.remove();
    expectOld("no player", "linux/saver");
    options.PlayerSystem = 1;
    expectOld("no player for Windows", "windows/saver.exe\" is missing");
    options.PlayerSystem = 0;
    writePlayer("saver", "PLAYER");
    addRow("out.scr", "own");
    expectOld("a source", "replace the source");

    EXPECT_FALSE(makeGreeting(GreetingStyle::Simple, "missing.jpg"));
    EXPECT_FALSE(makeGreeting(GreetingStyle::Simple, "out.scr")) << "not a picture";
    options.RainingText = QString(70'000, u'x');
    EXPECT_FALSE(makeGreeting(GreetingStyle::RainingText, "one.jpg"));
    EXPECT_EQ(desktop.reports.back().ErrRoutine, text("modEffectsExe.subMakeEffectExe"));
    EXPECT_EQ(readWholeFile(path("out.exe")), "OLD");
}

TEST_F(Joined, ALinkInTheSharedFolderIsNotFollowed) {
    addPictures({"one.jpg"});
    ASSERT_TRUE(QFile::link(writeFile("victim", "MINE"), path("tmp/Saver.lst")));
    ASSERT_TRUE(makeSaver());
    EXPECT_EQ(readWholeFile(path("victim")), "MINE");
    EXPECT_TRUE(contains(readWholeFile(path("tmp/Saver.lst")), "OPTIONS;"));
}

TEST_F(Joined, AGreetingHasOnePictureAndTheRecordOfTheRun) {
    addPicture("one.jpg");
    const QByteArray empty(28, '\0');
    ASSERT_TRUE(makeGreeting(GreetingStyle::Watery, "one.jpg"));
    EXPECT_TRUE(parsed("out.exe").file.startsWith(QByteArray("PLAYER watery\0", 14)));
    EXPECT_EQ(parsed("out.exe").options, empty) << "at the first use";
    options.RainingText = QString::fromUtf8("Gr\u00fc\u00dfe");
    options.HourColor = 0x030201;
    ASSERT_TRUE(makeGreeting(GreetingStyle::RainingText, "one.jpg"));
    EXPECT_EQ(parsed("out.exe").options, QByteArray("\5\0Gr\xFC\xDF"
                                                    "e",
                                                    7) +
                                             QByteArray(26, '\0'));
    options.RainingText = QString::fromUtf8("\u65e5");
    ASSERT_TRUE(makeGreeting(GreetingStyle::RainingText, "one.jpg"));
    EXPECT_EQ(parsed("out.exe").options.left(5), QByteArray("\3\0\xE6\x97\xA5", 5));
    options.ClockType = 1;
    options.RainingText = text("later");
    ASSERT_TRUE(makeGreeting(GreetingStyle::Clock, "one.jpg"));
    const QByteArray clock = parsed("out.exe").options;
    EXPECT_EQ(clock.mid(9, 14), QByteArray("\1\1\0\0\0\0\0\0\0\0\1\2\3\0", 14)) << "digital, with hands";
    ASSERT_TRUE(makeGreeting(GreetingStyle::Simple, "one.jpg"));
    const Parsed simple = parsed("out.exe");
    EXPECT_EQ(simple.options, clock) << "a plain one after a clock carries its colours";
    EXPECT_TRUE(simple.lines.size() == 2 && simple.lines[0].at(0) == "Single");
    EXPECT_EQ(readWholeFile(path("tmp/ImageExe.lst")), simple.list);

    settings::PublishingSettings stored;
    options.EffectStyle = int(GreetingStyle::Clock);
    storeEffectSettings(options, stored);
    EXPECT_TRUE(stored.ClockType == 1 && stored.EffectStyle == 3);
    EXPECT_TRUE(stored.HourColor == 255 && stored.RainingText == text("Happy Greetings!"));
}

TEST_F(Joined, FilesGetTheirExtensionAndAreReplacedOnlyWhenWanted) {
    EXPECT_EQ(saverPath(text("a.SCR"), false), text("a.SCR"));
    EXPECT_EQ(saverPath(text("a.scr"), true), text("a.scr.exe"));
    const QString old = writeFile("old.scr", "OLD");
    desktop.fileChoices = {FileDialogChoice{path("old"), 1}, FileDialogChoice{path("new"), 1}};
    desktop.answers = {MessageAnswer::No};
    EXPECT_EQ(askForSaver(false), path("new.scr"));
    EXPECT_EQ(desktop.messages.back().text,
              text("This File ('") + old + text("') Already Exists!\nWould You Like To Overwrite It?"));
    EXPECT_EQ(desktop.fileDialogs[1].initialPath, path("old"));
    EXPECT_EQ(desktop.fileDialogs[0].title, text("Save ScreenSaver As..."));
    desktop.fileChoices = {FileDialogChoice{path("old.scr"), 1}, std::nullopt};
    desktop.answers = {MessageAnswer::Yes};
    EXPECT_EQ(askForSaver(false), old);
    EXPECT_FALSE(askForSaver(true));

    addPicture("one.jpg");
    writeFile("out.exe", "OLD");
    desktop.answers = {MessageAnswer::No, MessageAnswer::Yes};
    EXPECT_TRUE(makeGreeting(GreetingStyle::Simple, "one.jpg", true) && results.empty());
    EXPECT_EQ(readWholeFile(path("out.exe")), "OLD");
    EXPECT_TRUE(makeGreeting(GreetingStyle::Simple, "one.jpg", true));
    EXPECT_EQ(states(), "written");
}

TEST(ExtractedNames, StayInTheirFolderAndAreNew) {
    ExtractedNames names;
    const std::pair<const char*, const char*> cases[] = {
        {"../x", "_x.jpg"},        {"a/b\\c", "a_b_c.jpg"},    {"", "picture.jpg"},
        {"..", "picture (2).jpg"}, {".hid\n", "hid_.jpg"},     {"X.JPG", "X.jpg"},
        {"x", "x (2).jpg"},        {"x (2)", "x (2) (2).jpg"}, {"x", "x (3).jpg"},
    };
    for (const auto& [name, file] : cases)
        EXPECT_EQ(names.next(text(name)), text(file)) << name;
}
