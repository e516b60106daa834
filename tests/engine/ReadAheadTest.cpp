// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "collections/RowAhead.h"
#include "tests/output/TestBasket.h"
#include "tests/support/Corpus.h"

#include <QDir>
#include <QFile>
#include <QSet>
#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <pthread.h>
#include <thread>

using namespace tarsel;
using namespace tarsel::test;

namespace {

/// What a user can see of a run: results, reports, files, and the box that the next run starts with.
QString outcomeOf(TestBasket& basket) {
    QStringList facts{basket.run() ? text("done") : text("ended")};
    for (const RowResult& result : basket.results)
        facts << text("%1 %2 %3 %4")
                     .arg(result.row)
                     .arg(rowStateText(result.state), result.target, result.reason());
    facts << basket.errors() << (basket.desktop.busy ? text("busy") : text(""));
    for (const char* folder : {"", "out"})
        for (const QFileInfo& file : QDir(basket.path(folder)).entryInfoList(QDir::Files, QDir::Name))
            facts << file.fileName() + QString::fromLatin1(readWholeFile(file.filePath()).toHex());
    facts << text("%1x%2 %3").arg(basket.box.Width()).arg(basket.box.Height()).arg(basket.box.BackColor);
    return facts.join(QLatin1Char('\n')).replace(basket.folder(), text("/"));
}

void addWatermark(TestBasket& basket, const QString& file) {
    basket.addTask("9", "watermark", {"False", "30", "2", qPrintable(file), "0", "0", "0"});
}

struct Scenario {
    const char* what;
    std::function<void(TestBasket&)> arrange;
    const char* states;
    const char* lastReason = "";
};

/// Runs in which a row depends on what became of the row before.
const Scenario scenarios[] = {
    {"settings of the box stay",
     [](TestBasket& basket) {
         basket.addPictures({"a.jpg", "b.jpg", "c.jpg"});
         basket.addTask("8", "crop", {"True", "0", "-3", "-3", "30", "30"}); // in the back colour
         basket.addTask("12", "canvas", {"255", "1", "1", "1", "1"});        // which this one sets
     },
     "written written written"},
    {"each row replaces the next row's source",
     [](TestBasket& basket) {
         basket.settings.DestinationFolder = basket.folder();
         basket.addPictures({"a.jpg", "b.jpg", "c.jpg", "d.jpg", "e.jpg"});
         for (int i = 0; i < 5; ++i)
             basket.pages.setText(i, QString(QLatin1Char(char('b' + i))));
         basket.halveSizes();
     },
     "written written written written written"},
    {"a missing source is made by an earlier row",
     [](TestBasket& basket) {
         basket.settings.DestinationFolder = basket.folder();
         basket.addPicture("a.jpg", 60, 40);
         basket.pages.setText(0, text("made"));
         basket.addRow("made.jpg", "c");
         basket.addRow("made.jpg", "d");
         basket.addTask("1", "flip", {"0"});
     },
     "written written written"},
    {"the watermark is made by the row before",
     [](TestBasket& basket) {
         addWatermark(basket, basket.addPicture("a.jpg", 20, 20));
         basket.settings.DestinationFolder = basket.folder();
         basket.addPictures({"b.jpg", "c.jpg"});
     },
     "written written written"},
    {"two rows of one name, which must not be replaced",
     [](TestBasket& basket) {
         basket.settings.Overwrite = 0;
         basket.addPictures({"a.jpg", "b.jpg", "c.jpg"});
         basket.pages.setText(1, text("a"));
         basket.halveSizes();
     },
     "written skipped written"},
    {"tasks fail for a row that is not reached",
     [](TestBasket& basket) {
         basket.addPictures({"a.jpg", "b.jpg"});
         ASSERT_TRUE(QDir().mkpath(basket.path("out/a.jpg"))); // where the first file is to go
         basket.addTask("7", "sharpen", {"very"});
     },
     "failed skipped", "not reached"},
    {"a cancel between two rows",
     [](TestBasket& basket) {
         basket.addPictures({"a.jpg", "b.jpg", "c.jpg"});
         basket.halveSizes();
         basket.slice.onRow = [](const RowResult& result) { CancelRequested = result.row == 1; };
     },
     "written skipped skipped", "cancelled"},
    {"a stop from another thread",
     [](TestBasket& basket) {
         basket.addPictures({"a.jpg", "b.jpg", "c.jpg", "d.jpg"});
         const auto stop = std::make_shared<std::stop_source>();
         basket.slice.stop = stop->get_token();
         basket.slice.onRow = [stop](const RowResult& result) {
             if (result.row == 2)
                 std::jthread([stop] { stop->request_stop(); });
         };
     },
     "written written skipped skipped", "cancelled"},
    {"rows and tasks are edited meanwhile",
     [](TestBasket& basket) {
         basket.addPictures({"a.jpg", "b.jpg", "c.jpg", "d.jpg"});
         basket.halveSizes();
         basket.slice.onRow = [&basket](const RowResult& result) {
             if (result.row == 1)
                 basket.tasks.remove(0);
             if (result.row == 2)
                 basket.pages.setTag(2, basket.path("a.jpg"));
         };
     },
     "written written written written"},
    {"rows are removed meanwhile",
     [](TestBasket& basket) {
         basket.addPictures({"a.jpg", "b.jpg", "c.jpg", "d.jpg"});
         basket.slice.onRow = [&basket](const RowResult& result) {
             if (result.row == 1)
                 basket.pages.remove(2);
         };
     },
     "written written written skipped", "the row was removed during the run"},
    {"a damaged source after the row in work",
     [](TestBasket& basket) {
         basket.addPictures({"a.jpg", "b.jpg", "c.jpg"});
         basket.writeFile("b.jpg", QByteArray::fromHex("ffd8ffe000104a46494600010100000100010000"));
         basket.halveSizes();
     },
     "written failed skipped", "not reached"},
};

} // namespace

TEST(ReadAhead, NothingThatCanBeSeenDependsOnIt) {
    for (const Scenario& scenario : scenarios) {
        QString outcomes[2];
        for (const bool readAhead : {false, true}) {
            TestBasket basket;
            scenario.arrange(basket);
            basket.slice.readAhead = readAhead;
            outcomes[readAhead] = outcomeOf(basket);
            EXPECT_FALSE(CancelRequested.exchange(false)) << "the next run must not be cancelled too";
            EXPECT_FALSE(basket.progress.visible);
            EXPECT_EQ(basket.reasons().last(), text(scenario.lastReason)) << scenario.what;
            EXPECT_EQ(basket.states(), scenario.states) << scenario.what << ", read ahead: " << readAhead;
        }
        EXPECT_EQ(outcomes[0].toStdString(), outcomes[1].toStdString()) << scenario.what;
    }
}

namespace {

/// Makes nothing of the pictures, and knows how far the loop has looked ahead.
class Watcher final : public RowConsumer {
public:
    QString readablePath(const QString& source) const override {
        m_seen.insert(source);
        return source;
    }
    std::function<bool()> consume(const ListRow&, ImageBox&, RowResult& result) override {
        EXPECT_LE(m_seen.size(), result.row + 2);
        return [] { return true; };
    }

private:
    mutable QSet<QString> m_seen;
};

} // namespace

TEST(ReadAhead, HoldsThreePicturesAtMost) {
    TestBasket basket;
    basket.addPictures({"a.jpg", "b.jpg", "c.jpg", "d.jpg", "e.jpg", "f.jpg"});
    Watcher watcher;
    const RowRun run{.rows = basket.pages, .tasks = {}, .stop = {}, .onRow = {}};
    RowLoop(run, watcher, basket.box, basket.progress, basket.results).run();
    EXPECT_EQ(basket.results.size(), 6u);
}

TEST(ReadAhead, APictureTooLargeForOthersBesideItIsDoneAlone) {
    TestBasket basket;
    for (const char* name : {"a.jpg", "b.jpg"})
        basket.addPicture(name, 40, 20);
    const auto pathOf = [&](int row) { return basket.pages.row(row - 1).tag; };
    for (const std::int64_t maxPixels : {799, 800}) {
        RowAhead ahead({.stop = {}, .maxPixels = maxPixels});
        ahead.load(1, pathOf(1));
        ahead.load(2, pathOf(2));
        for (const int row : {1, 2}) {
            int loads = 0;
            const PreparedRow done = ahead.take(row, pathOf(row), {}, {}, [&] { ++loads; });
            EXPECT_EQ(done.box.Width(), 40);
            EXPECT_EQ(loads, maxPixels < 800 ? 2 : 1) << "in vain beside the other one, then alone";
        }
    }
}

TEST(ReadAhead, WithoutThreadsTheRowsAreDoneOneAfterTheOther) {
    TestBasket basket;
    basket.addPictures({"a.jpg", "b.jpg"});
    pthread_attr_t usual;
    ASSERT_EQ(pthread_getattr_default_np(&usual), 0);
    pthread_attr_t tooLarge = usual;
    pthread_attr_setstacksize(&tooLarge, size_t(1) << 47);
    ASSERT_EQ(pthread_setattr_default_np(&tooLarge), 0);
    basket.run();
    pthread_setattr_default_np(&usual);
    EXPECT_EQ(basket.states(), "written written");
}

namespace {

/// Its work runs out of memory the first time.
class Hungry final : public RowConsumer {
public:
    std::function<bool()> consume(const ListRow&, ImageBox&, RowResult&) override {
        return [this] { return ++attempts % 2 == 0 ? true : throw std::bad_alloc(); };
    }
    int attempts = 0;
};

} // namespace

TEST(ReadAhead, WorkThatRunsOutOfMemoryIsDoneOnceMoreAlone) {
    TestBasket basket;
    basket.addPictures({"a.jpg", "b.jpg", "c.jpg"});
    Hungry hungry;
    const RowRun run{.rows = basket.pages, .tasks = {}, .stop = {}, .onRow = {}};
    RowLoop(run, hungry, basket.box, basket.progress, basket.results).run();
    EXPECT_EQ(basket.states(), "written written written");
    EXPECT_EQ(hungry.attempts, 6);
}

/// The thread sanitizer watches each access to a pixel.
#ifdef __SANITIZE_THREAD__
constexpr int mostPixelsOfCorpus = 100'000;
#else
constexpr int mostPixelsOfCorpus = 100'000'000;
#endif

TEST(ReadAhead, PicturesOfTheCorpusComeOutTheSame) {
    TARSEL_REQUIRE_CORPUS();
    QString outcomes[2];
    for (const bool readAhead : {false, true}) {
        TestBasket basket;
        for (const CorpusPicture& picture : corpusPictures())
            if (picture.number("bytes") < 1'000'000 &&
                picture.number("width") * picture.number("height") < mostPixelsOfCorpus)
                basket.addRow(picture.path, text("picture%1").arg(basket.pages.count()));
        basket.halveSizes();
        basket.addTask("7", "sharpen", {"2"});
        basket.slice.readAhead = readAhead;
        while (basket.slice.firstRow <= basket.pages.count()) { // an error ends each run
            outcomes[readAhead] += outcomeOf(basket);
            const auto reached = [](const RowResult& result) {
                return result.skipped != SkipReason::NotReached;
            };
            basket.slice.firstRow += int(std::ranges::count_if(basket.results, reached));
            for (const QString& file : QDir(basket.path("out")).entryList(QDir::Files))
                QFile::remove(basket.path("out/") + file);
            basket.desktop.reports.clear();
        }
        EXPECT_GT(basket.pages.count(), 100);
    }
    EXPECT_EQ(outcomes[0], outcomes[1]);
}
