// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ProgramOptions.h"
#include "app/StartFolder.h"
#include "base/AcquiredFiles.h"
#include "base/SafeFileWriter.h"
#include "configuration/ConfigFile.h"
#include "configuration/RecordImage.h"
#include "controls/ListControl.h"
#include "controls/NoticeBar.h"
#include "docs/screenshots/SampleDialogs.h"
#include "tasks/TaskColumns.h"
#include "tests/gui/WindowTest.h"
#include "tests/support/FileSizeLimit.h"

#include <QAbstractItemView>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QTest>
#include <future>

namespace tarsel::test {

namespace {

class Start : public WindowTest {
protected:
    NoticeBar& notices() { return child<NoticeBar>(window(), "noticeBar"); }
    std::string notice() { return notices().isVisible() ? notices().text().left(20).toStdString() : ""; }
    void dismiss() { click(window(), "cmdNotice"); }
};

/// A record in which every number is as far out as its type goes, and every text is long.
ConfigRecordData extremeRecord(bool high) {
    QByteArray image = recordImage(defaultRecord(QStringLiteral("/p")));
    image.replace('\0', high ? '\x7F' : '\x80');
    ConfigRecordData record = recordFromImage(image.leftJustified(400'000, high ? '\x7F' : '\x80'));
    record.SplitterMain = record.SplitterRight = record.SplitterLeft = record.SplitterView = high ? 100 : 0;
    return record;
}

} // namespace

TEST(ProgramOptions, TakeOneFile) {
    const auto operands = [](const char* words) {
        return operandsOf(QString::fromLatin1(words).split(u' '));
    };
    EXPECT_EQ(operands("tarsel-jpeg -- -a.jpg"), QStringList(QStringLiteral("-a.jpg")));
    EXPECT_EQ(operands("tarsel-jpeg"), QStringList());
    EXPECT_FALSE(operands("tarsel-jpeg a.jpg b.jpg") || operands("tarsel-jpeg --open a.jpg"));
}

TEST_F(Start, OffersThePagesThatNoBasketNamesUntilTheyAreRowsOrRemoved) {
    startWithBasket(1);
    ConfigRecord.HintOwnSeen = 0;
    close();
    const QString temporary = path("program/Temp/");
    for (const char* name : {"1_10.tif", "2_20.tif"}) { // a session that was killed
        acquiredFiles::list({temporary + QLatin1String(name)}, true);
        makePicture(temporary + QLatin1String(name));
    }
    const auto isOffered = [&] { return notice() == "Pages or pictures th"; };
    start(pictures());
    ASSERT_TRUE(waitFor(isOffered)) << "not only when the hint has been read";
    click(window(), "cmdPagesNew");
    close();
    start();
    ASSERT_TRUE(waitFor(isOffered)) << "New Basket took what it had as rows";
    QTest::keyClick(&window(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(waitFor([&] { return texts(basket()) == "photo01 1_10 2_20"; }));
    EXPECT_TRUE(waitFor([&] { return !isOffered(); }));
    basket().selectOnly(1);
    click(window(), "cmdPagesDelete");
    close();
    start();
    QTest::keyClick(&window(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(waitFor([&] { return texts(basket()) == "photo01 2_20"; }));
    EXPECT_FALSE(isOffered());
    click(window(), "cmdPagesNew");
    close();
    EXPECT_EQ(QDir(temporary).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
}

TEST_F(Start, GivesANewcomerEachHintOnceAndInItsMoment) {
    makePictures(2);
    start(pictures());
    ASSERT_TRUE(waitFor([&] { return listed().count() == 2; }));
    EXPECT_EQ(notice(), "These are sample pic");
    ASSERT_EQ(window().focusWidget(), child<ListControl>(window(), "lvFolder").view());
    QTest::keyClick(window().focusWidget(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(window().focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(waitFor([&] { return basket().count() == 2 && notice().empty(); }))
        << "nothing to change yet";
    window().preview().ShowRow(basket(), 0);
    EXPECT_TRUE(waitFor([&] { return notice() == "Press F4 to change t"; }));
    close();
    start(pictures());
    ASSERT_TRUE(waitFor([&] { return listed().count() == 2; }));
    EXPECT_EQ(notice(), "") << "the first was done, the others have their moment later";
    addAll();
    window().preview().ShowRow(listed(), 0);
    EXPECT_TRUE(waitFor([&] { return notice() == "Press F4 to change t"; }));
    dismiss();
    EXPECT_EQ(notice(), "");
    window().workspace().tasks.append(defaultRow(11, {}));
    EXPECT_EQ(notice(), "Press Ctrl+J to save");
    dismiss();
    window().workspace().tasks.append(defaultRow(11, {}));
    EXPECT_EQ(notice(), "");

    ConfigRecord.HintSaveSeen = 0;
    click(window(), "cmdPagesNew");
    window().workspace().tasks.append(defaultRow(11, {}));
    EXPECT_EQ(notice(), "") << "the basket has nothing to save";
    addAll();
    EXPECT_TRUE(waitFor([&] { return notice() == "Press Ctrl+J to save"; }));
}

TEST_F(Start, ShowsTheWindowWithRemarksInTurnAndNoDialogBeforeIt) {
    QDir().mkpath(programFolder() + QStringLiteral("/gui_tests/mine"));
    QDir().mkpath(programFolder() + QStringLiteral("/gui_tests.ini"));
    start();
    EXPECT_EQ(notice(), "The settings could n");
    dismiss();
    EXPECT_EQ(notice(), "The settings could n") << "about the other file";
    dismiss();
    EXPECT_EQ(notice(), "");
    close();
    start();
    EXPECT_EQ(notice(), "");
    EXPECT_TRUE(QDir(programFolder() + QStringLiteral("/gui_tests.damaged/mine")).exists());
}

TEST_F(Start, WorksWithSettingsThatAreOutOfAllBounds) {
    makePictures(3);
    for (const bool high : {true, false}) {
        writeFileSafely(programFolder() + QStringLiteral("/gui_tests"), recordImage(extremeRecord(high)));
        writeFileSafely(programFolder() + QStringLiteral("/gui_tests.ini"),
                        "[SaveAdvanced]\nJpgMostKilobytes=99999999999999999999\nJpgLowestQuality=-1\n");
        writeFileSafely(programFolder() + QStringLiteral("/window-place"), QByteArray(300, '\x7F'));
        QDir(programFolder() + QStringLiteral("/Temp")).removeRecursively();
        if (high)
            writeFileSafely(programFolder() + QStringLiteral("/Temp"), "not a folder");
        else
            QFile::link(path("unplugged/Temp"), programFolder() + QStringLiteral("/Temp"));
        start();
        listFolder(pictures());
        EXPECT_EQ(listed().count(), 3);
        addAll();
        EXPECT_TRUE(waitFor([&] { return basket().count() == 3; }));
        SampleDialogs samples(basket(), ConfigRecord);
        for (const auto& dialog : samples.all(&window())) {
            dialog->show();
            QCoreApplication::processEvents();
            dialog->close();
        }
        close();
    }
}

TEST(StartFolder, ADiskWithoutRoomGivesATemporaryFolderWithTheSettingsOfBefore) {
    reportFileSizeLimitAsError();
    const QTemporaryDir home;
    const QString usual = home.filePath(QStringLiteral("usual"));
    const auto make = [&] {
        QDir().mkpath(usual);
        return usual;
    };
    const StartFolder roomy(make);
    EXPECT_EQ(roomy.path(), usual);
    EXPECT_TRUE(roomy.remark().isEmpty());
    EXPECT_EQ(QDir(usual).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList());
    for (const char* name : {"/tarsel-jpeg", "/last-basket.ibd", "/last-basket-titles.ibd", "/Captured1.tif"})
        writeFileSafely(usual + QLatin1String(name), "settings");
    for (const QString& kept : {QString(), QStringLiteral("/Temp/scan.tif"), QStringLiteral("/Captured2.tif"),
                                QStringLiteral("/my.ibd"), QStringLiteral("/tarsel-jpeg holidays.ibd")}) {
        QString other;
        {
            const FileSizeLimit full(100'000); // more than a log of this test
            const StartFolder start(make);
            other = start.path();
            EXPECT_NE(other, usual);
            EXPECT_TRUE(start.remark().contains(usual)) << start.remark().toStdString();
            EXPECT_EQ(readWholeFile(other + QStringLiteral("/tarsel-jpeg")), "settings");
            EXPECT_TRUE(start.remark().contains(other)) << start.remark().toStdString();
            EXPECT_FALSE(QFileInfo::exists(other + QStringLiteral("/Captured1.tif")));
            QDir(other).mkdir(QStringLiteral("Temp"));
            if (!kept.isEmpty())
                writeFileSafely(other + kept, "of the user");
        }
        EXPECT_EQ(QFileInfo::exists(other + kept), !kept.isEmpty()) << "nowhere else: " << kept.toStdString();
        EXPECT_FALSE(QFileInfo::exists(other + QStringLiteral("/tarsel-jpeg")));
        QDir(other).removeRecursively();
    }
    EXPECT_EQ(readWholeFile(usual + QStringLiteral("/tarsel-jpeg")), "settings");
}

TEST(StartFolder, AHomeThatDoesNotAnswerOrCannotBeMadeKeepsNobodyWaiting) {
    std::promise<void> answer;
    const auto never = [end = answer.get_future().share()] {
        end.wait();
        return QString();
    };
    const StartFolder slow(never, true, std::chrono::milliseconds(20));
    EXPECT_TRUE(QFileInfo(slow.path()).isWritable());
    EXPECT_FALSE(slow.remark().isEmpty());
    const StartFolder impossible(
        []() -> QString { fail(ErrorNumber::PathNotFound, QStringLiteral("/gone")); });
    EXPECT_TRUE(QFileInfo(impossible.path()).isWritable());
    EXPECT_TRUE(impossible.remark().contains(QStringLiteral("/gone")));
    answer.set_value();
}

} // namespace tarsel::test
