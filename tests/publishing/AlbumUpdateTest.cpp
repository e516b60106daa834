// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Progress.h"
#include "base/SafeFileWriter.h"
#include "publishing/AlbumRecord.h"
#include "tests/publishing/TestAlbum.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <sys/stat.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

class AlbumUpdated : public TestAlbum {
protected:
    AlbumUpdated() {
        options.settings.OnlyChanged = 1;
        for (const char* name : {"a.png", "b.png", "c.png"})
            addPicture(name, 900, 9);
    }
    QString inDirectory(const char* name) const { return path("out/MyImages_My Album/") + text(name); }
    /// Inodes of all files of the album: a file that is written gets another one.
    QMap<QString, ino_t> inodes() const {
        QMap<QString, ino_t> files;
        QDirIterator all(path("out"), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (all.hasNext()) {
            struct stat status = {};
            ::stat(QFile::encodeName(all.next()).constData(), &status);
            files.insert(all.filePath(), status.st_ino);
        }
        return files;
    }
    /// What became of each row: written, kept, or neither.
    std::string letters() const {
        std::string letters;
        for (const RowResult& result : results)
            if (result.row > 0)
                letters += result.skipped == SkipReason::Unchanged ? '-'
                           : result.state == RowState::Written     ? 'w'
                                                                   : 'x';
        return letters;
    }
};

} // namespace

TEST_F(AlbumUpdated, WritesOnlyWhatIsNoLongerRight) {
    struct Case {
        const char* change;
        std::function<void()> make;
        const char* rows;
    };
    for (const bool isModern : {false, true}) {
        options.settings.ModernTemplate = isModern;
        const Case cases[] = {
            {"nothing", [] {}, "---"},
            {"a source", [&] { boxWith(shadedPicture(901, 9)).SaveToFile(path("b.png")); }, "-w-"},
            {"a source that vanished", [&] { QFile::rename(path("c.png"), path("c2.png")); }, "--x"},
            {"it is back", [&] { QFile::rename(path("c2.png"), path("c.png")); }, "--w"},
            {"a picture edited", [&] { writeFile("out/MyImages_My Album/a.jpg", "x"); }, "w--"},
            {"a picture deleted", [&] { QFile::remove(inDirectory("c.jpg")); }, "--w"},
            {"a page deleted", [&] { QFile::remove(path("out/index.htm")); }, "---"},
            {"an option of the pages", [&] { options.settings.ShowFileName ^= 1; }, "---"},
            {"an option of the pictures", [&] { options.settings.Quality -= 1; }, "www"},
            {"the tasks",
             [&] {
                 halveSizes();
                 options.settings.ProcessTaskBasket = 1;
             },
             "www"},
            {"no tasks", [&] { options.settings.ProcessTaskBasket = 0; }, "www"},
            {"the order",
             [&] {
                 pages.reorder({2, 0, 1});
             },
             "---"},
            {"the record", [&] { writeFile("out/MyImages_My Album/.album-record", "{\"version\":1,"); },
             "www"},
        };
        generate();
        for (const Case& each : cases) {
            SCOPED_TRACE(std::string(each.change) + (isModern ? ", modern" : ", exact"));
            each.make();
            const auto before = inodes();
            ASSERT_TRUE(generate());
            EXPECT_EQ(letters(), each.rows);
            if (each.change == std::string("nothing")) {
                EXPECT_EQ(inodes(), before);
            }
            EXPECT_TRUE(QFile::exists(path("out/index.htm")));
            const QByteArray index = readWholeFile(path("out/index.htm"));
            options.settings.OnlyChanged = 0;
            generate();
            EXPECT_EQ(readWholeFile(path("out/index.htm")), index) << "as that of a complete run";
            options.settings.OnlyChanged = 1;
            generate();
        }
        pages.reorder({1, 2, 0});
    }
}

TEST_F(AlbumUpdated, RemovesItsOwnFilesThatNoRowNeedsAndNamesTheOthers) {
    generate();
    writeFile("out/MyImages_My Album/b_thumb.jpg", "edited by the user");
    writeFile("out/MyImages_My Album/note.txt", "");
    writeFile("out/My Album_old.html", "");
    writeFile("out/mine.html", "");
    pages.clear();
    addRow("a.png", "a");
    addRow(inDirectory("c.jpg"), text("d"));
    albumRun.unreadSources = {path("unplugged.png")};
    ASSERT_TRUE(generate());
    EXPECT_TRUE(QFile::exists(inDirectory("b.jpg"))) << "it may be of the source that is missing";
    albumRun.unreadSources.clear();
    ASSERT_TRUE(generate());
    QStringList kept, removed;
    for (const RowResult& result : results)
        if (result.row == 0)
            (QFile::exists(result.target) ? kept : removed) << QFileInfo(result.target).fileName();
    EXPECT_EQ(removed.join(u' '), text("My Album_b.html My Album_c.html b.jpg c_thumb.jpg"));
    EXPECT_EQ(kept.join(u' '), text("b_thumb.jpg c.jpg My Album_old.html note.txt"))
        << "changed, a source, and what no run recorded";
    EXPECT_EQ(files("out"), "My Album_a.html My Album_d.html My Album_old.html index.htm mine.html");
}

TEST_F(AlbumUpdated, WhatTookTheOnlyCopyOfASourceIsNeverRemoved) {
    pages.clear();
    addRow("a.png", "a");
    QDir().mkpath(path("out/MyImages_My Album"));
    boxWith(shadedPicture(30, 20)).SaveToFile(inDirectory("only.jpg"));
    addRow(inDirectory("only.jpg"), text("only"));
    ASSERT_TRUE(generate());
    pages.clear();
    addRow("a.png", "a");
    ASSERT_TRUE(generate());
    EXPECT_TRUE(QFile::exists(inDirectory("only.jpg")));
}

TEST_F(AlbumUpdated, ARecordOfSomeoneElseLeadsNowhere) {
    generate();
    const QString victim = writeFile("victim", "x");
    QFile::rename(inDirectory(".album-record"), path("record"));
    ASSERT_TRUE(QFile::link(victim, inDirectory(".album-record")));
    EXPECT_FALSE(generate());
    EXPECT_EQ(readWholeFile(victim), "x");
    QFile::remove(inDirectory(".album-record"));
    AlbumRecord record;
    record.files.insert(text("../victim"), AlbumRecord::Stamp::of(victim));
    record.files.insert(victim, AlbumRecord::Stamp::of(victim));
    ASSERT_TRUE(QFile::link(folder(), path("out/link")));
    record.files.insert(text("link/victim"), AlbumRecord::Stamp::of(victim));
    const QString diary = writeFile("out/diary.txt", "x");
    record.files.insert(text("diary.txt"), AlbumRecord::Stamp::of(diary));
    writeFileSafely(inDirectory(".album-record"), record.text());
    EXPECT_EQ(AlbumRecord::parsed(record.text()).files.size(), 2);
    EXPECT_TRUE(generate());
    EXPECT_TRUE(readWholeFile(victim) == "x" && QFile::exists(diary));
    for (const char* bad : {"", "[]", "{\"version\":2}", "{\"version\":1,\"rows\":{\"a\":[1,-1,1e300]}}",
                            "{\"version\":1,\"files\":{\"\":3,\"a//b\":[],\"x\":[1e300,\"y\"]}}"}) {
        EXPECT_TRUE(AlbumRecord::parsed(bad).rows.isEmpty()) << bad;
        writeFileSafely(inDirectory(".album-record"), bad);
        EXPECT_TRUE(generate()) << bad;
        EXPECT_EQ(letters(), "www") << bad;
    }
}

TEST_F(AlbumUpdated, ARunThatWasCancelledIsTakenUpWhereItEnded) {
    desktop.onYield = [this] { CancelRequested = results.size() == 2; };
    EXPECT_TRUE(generate());
    CancelRequested = false;
    desktop.onYield = nullptr;
    EXPECT_EQ(letters(), "wwx");
    EXPECT_TRUE(generate());
    EXPECT_EQ(letters(), "--w");
}
