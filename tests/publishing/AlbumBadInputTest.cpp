// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "tests/publishing/TestAlbum.h"
#include "tests/support/FileSizeLimit.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <memory>

using namespace tarsel;
using namespace tarsel::test;

namespace {

class AlbumOfBadInput : public TestAlbum {
protected:
    void setTitle(const QString& title) { options.settings.AlbumTitle = title; }
    void setFolder(const QString& folder) { options.settings.AlbumFolder = folder; }
    /// Paths and contents of all files, but for those of the album.
    QMap<QString, QByteArray> filesOutside() const {
        QMap<QString, QByteArray> files;
        QDirIterator all(folder(), QDir::Files | QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
        while (all.hasNext())
            if (const QString file = all.next(); !file.startsWith(path("out")))
                files.insert(file, all.fileInfo().isFile() ? readWholeFile(file) : QByteArray());
        return files;
    }

    std::unique_ptr<FileSizeLimit> full;
};

const QString tooLong(250, QLatin1Char('x'));

} // namespace

TEST_F(AlbumOfBadInput, IsReportedAndNeverWritesOutsideTheFolder) {
    struct Case {
        const char* name;
        std::function<void()> prepare;
        bool ends;          ///< the run, by an error
        std::string states; ///< of the rows "a", "b", "c"
        QString fact;       ///< in the report
    };
    reportFileSizeLimitAsError();
    const std::string none = "skipped skipped skipped";
    const auto rename = [this](const QString& name) { pages.setText(1, name); };
    const Case cases[] = {
        {"no folder", [&] { setFolder(text("  ")); }, true, none, text("no folder")},
        {"missing folder", [&] { setFolder(path("no/sub")); }, true, none, path("no/sub")},
        {"a file for a folder", [&] { setFolder(writeFile("file", "x")); }, true, none, path("file")},
        {"title leads out", [&] { setTitle(text("../x")); }, true, none, text("../x")},
        {"title with a backslash", [&] { setTitle(text("a\\b")); }, true, none, text("a\\b")},
        {"long title", [&] { setTitle(tooLong); }, true, none, tooLong},
        {"NUL in the title", [&] { setTitle(QString(1, QChar(u'\0'))); }, true, none, text("NUL")},
        {"row leads out", [&] { rename(text("../../x")); }, true, none, text("row 2, \"../../x\"")},
        {"long row name", [&] { rename(tooLong); }, true, none, tooLong},
        {"dots alone", [&] { rename(text("..")); }, false, "written written written", {}},
        {"full disk",
         [&] {
             boxWith(shadedPicture(3000, 2000)).SaveToFile(path("b.png"));
             full = std::make_unique<FileSizeLimit>(20'000);
         },
         false, "written failed written", text("b.jpg")},
        {"vanished source", [&] { QFile::remove(path("b.png")); }, false, "written failed written",
         text("b.png")},
        {"folder in the way of a picture", [&] { QDir().mkpath(path("out/MyImages_My Album/b.jpg/x")); },
         false, "written failed written", text("b.jpg")},
        {"folder in the way of the index", [&] { QDir().mkpath(path("out/index.htm")); }, true,
         "written written written", text("index.htm")},
        {"a link in the place of a picture",
         [&] {
             QDir().mkpath(path("out/MyImages_My Album"));
             QFile::link(writeFile("precious", "x"), path("out/MyImages_My Album/b.jpg"));
         },
         false,
         "written skipped written",
         {}},
        {"a link in the place of the index",
         [&] { QFile::link(writeFile("elsewhere", "x"), path("out/index.htm")); }, true,
         "written written written", path("out/index.htm")},
        {"a link in the place of the folder",
         [&] {
             QDir().mkpath(path("other"));
             QFile::link(path("other"), path("out/MyImages_My Album"));
         },
         true, none, path("out/MyImages_My Album")},
        {"two rows of one name", [&] { rename(text("a")); }, false, "written written written", {}},
        {"a picture in the place of a source",
         [&] {
             pages.setText(0, text("c"));
             QDir().mkpath(path("out/MyImages_My Album"));
             QFile::rename(path("c.png"), path("out/MyImages_My Album/c.jpg"));
             pages.setTag(2, path("out/MyImages_My Album/c.jpg"));
         },
         false,
         "skipped written written",
         {}},
    };
    for (const bool isModern : {false, true})
        for (const Case& each : cases) {
            SCOPED_TRACE(std::string(each.name) + (isModern ? ", modern" : ", exact"));
            QDir(folder()).removeRecursively();
            QDir().mkpath(path("out"));
            pages.clear();
            desktop.reports.clear();
            setTitle(text("My Album"));
            setFolder(path("out"));
            options.settings.ModernTemplate = isModern;
            addPicture("a.png", 9, 9);
            addPicture("b.png", 900, 600);
            addPicture("c.png", 9, 9);
            each.prepare();
            const auto outside = filesOutside();
            EXPECT_EQ(generate(), !each.ends);
            full.reset();
            EXPECT_EQ(states(), each.states);
            EXPECT_EQ(desktop.reports.size(), each.fact.isEmpty() ? 0U : 1U);
            if (!each.fact.isEmpty() && !desktop.reports.empty()) {
                EXPECT_TRUE(contains(desktop.reports[0].ErrSystem, each.fact));
            }
            EXPECT_EQ(filesOutside(), outside);
            const QFileInfo index(path("out/index.htm"));
            EXPECT_EQ(index.isFile() && !index.isSymLink(), !each.ends);
        }
}
